// create and verify: the library as a whole.
#include "base/Text.h"
#include "ctl/Command.h"
#include "ctl/RecordJson.h"
#include "store/Verification.h"

#include <QFileInfo>

namespace mosaro::ctl {

using base::text;

namespace {

/// What a check found, one line each.
class Findings {
public:
    explicit Findings(Session& session) : m_session(session) {}

    void add(const char* problem, const char* key, const QString& value, bool isRemoved, const QString& words)
    {
        QJsonObject object{{QStringLiteral("problem"), QLatin1String(problem)}, {QLatin1String(key), value}};
        if (isRemoved) {
            object.insert(QStringLiteral("removed"), true);
        } else {
            ++m_open;
        }
        m_objects.push_back(object);
        m_lines.append(words);
    }

    void print() const
    {
        if (m_session.json()) {
            JsonArrayWriter array(m_session.out());
            for (const QJsonObject& object : m_objects) {
                array.write(object);
            }
            return;
        }
        for (const QString& line : m_lines) {
            m_session.out() << oneLine(line) << '\n';
        }
        if (m_lines.isEmpty()) {
            m_session.out() << text("Hint.Ctl.Verify.Clean") << '\n';
        }
    }

    [[nodiscard]] int open() const { return m_open; }

private:
    Session& m_session;
    std::vector<QJsonObject> m_objects;
    QStringList m_lines;
    int m_open = 0;
};

void addFolders(Findings& findings, const QStringList& folders, const QStringList& removed)
{
    for (const QString& folder : folders) {
        const bool isRemoved = removed.contains(folder);
        findings.add("folderWithoutRecord", "path", folder, isRemoved,
                     isRemoved ? text("Hint.Ctl.Verify.Removed", folder)
                               : text("Hint.Ctl.Verify.Folder", folder));
    }
}

} // namespace

int create(Session& session, const QCommandLineParser& line)
{
    const QString path = QFileInfo(line.positionalArguments().constFirst()).absoluteFilePath();
    if (QFileInfo::exists(path) || QFileInfo(path).isSymLink()) {
        return session.fail(text("Failure.Ctl.PathTaken", path));
    }
    if (!session.library().createLibaryAtPath(path)) {
        return session.fail(session.library().lastError());
    }
    if (session.json()) {
        JsonArrayWriter(session.out()).write({{QStringLiteral("path"), path}});
    } else {
        session.out() << text("Hint.Ctl.Created", oneLine(path)) << Qt::endl;
    }
    return kAllWell;
}

int verify(Session& session, const QCommandLineParser& line)
{
    if (const auto opened = session.open(); !opened) {
        return session.fail(opened.reason());
    }
    const store::LibraryPackage& package = session.library().package();
    const auto report = store::verifyLibrary(session.context(), package);
    if (!report.isComplete) {
        return session.fail(report.storeDamage.isEmpty() ? text("Failure.Ctl.Unverified")
                                                         : report.storeDamage);
    }
    const QStringList removed =
        line.isSet(QStringLiteral("repair")) ? store::repairLibrary(report, package) : QStringList();
    Findings findings(session);
    addFolders(findings, report.foldersWithoutRecord, removed);
    for (const QString& mediaID : report.missingPreviews) {
        findings.add("missingPreview", "mediaID", mediaID, false, text("Hint.Ctl.Verify.Preview", mediaID));
    }
    for (const QString& mediaID : report.missingOriginals) {
        findings.add("missingOriginal", "mediaID", mediaID, false, text("Hint.Ctl.Verify.Original", mediaID));
    }
    findings.print();
    session.out().flush();
    return findings.open() == 0 ? kAllWell : kSomeItemsFailed;
}

} // namespace mosaro::ctl
