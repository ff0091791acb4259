#include "ctl/Session.h"

#include "base/Text.h"
#include "store/LibraryPackage.h"

#include <QDir>
#include <QFileInfo>

namespace mosaro::ctl {

using base::Failure;
using base::Result;
using base::text;

Session::Session(const Environment& environment, QString libraryPath, bool json)
    : m_environment(environment), m_libraryPath(std::move(libraryPath)), m_json(json)
{
    m_library.setUp(environment.defaults, *environment.platform.bookmarks, environment.supportFolder);
    // Which library the application opens next is for its user to choose.
    m_library.setRemembersLibrary(false);
}

Session::~Session()
{
    m_library.closeDatabase();
}

Result<void> Session::open()
{
    if (!m_libraryPath.isEmpty()) {
        return openAt(QFileInfo(m_libraryPath).absoluteFilePath());
    }
    if (const QString known = knownLibrary(); !known.isEmpty()) {
        return openAt(known);
    }
    return m_library.openDatabase() ? Result<void>() : Failure{m_library.lastError()};
}

Result<void> Session::openAt(const QString& path)
{
    // Opening would make a library of an empty folder.
    const QFileInfo package(path);
    if (!package.exists() || (package.isReadable() && package.isDir() && QDir(path).isEmpty())) {
        return Failure{text("Failure.Ctl.NoLibrary", path)};
    }
    return m_library.openDatabaseAtPath(path) ? Result<void>() : Failure{m_library.lastError()};
}

QString Session::knownLibrary() const
{
    const QString remembered =
        store::ZNSandBoxManager(m_environment.defaults, *m_environment.platform.bookmarks)
            .rememberedLibrary();
    if (!remembered.isEmpty()) {
        return remembered;
    }
    const QString byDefault = m_environment.supportFolder + QStringLiteral("/Mosaro/Mosaro.") +
                              QLatin1String(store::kPackageSuffix);
    return QFileInfo::exists(byDefault) ? byDefault : QString();
}

void Session::complain(const QString& message) const
{
    m_environment.err << "mosaroctl: " << oneLine(message) << Qt::endl;
}

int Session::fail(const QString& reason) const
{
    complain(reason);
    return kFailed;
}

int Session::wrongUsage(const QString& reason, const char* command) const
{
    complain(text("Failure.Ctl.Usage", reason, QString::fromLatin1(command)));
    return kWrongUsage;
}

QString oneLine(const QString& text)
{
    QString line = text;
    for (QChar& character : line) {
        if (character.category() == QChar::Other_Control) {
            character = u' ';
        }
    }
    return line;
}

} // namespace mosaro::ctl
