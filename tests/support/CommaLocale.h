#pragma once

#include <QProcess>
#include <QTemporaryDir>
#include <clocale>

namespace mosaro::test {

/// While it lives, the C library writes and reads numbers with a decimal comma. Few machines have such a
/// locale ready, so it is made, where its sources are installed.
class CommaLocale {
public:
    CommaLocale() : m_former(std::setlocale(LC_ALL, nullptr))
    {
        const QString target = m_folder.filePath(QStringLiteral("de_DE.UTF-8"));
        QProcess::execute(QStringLiteral("localedef"),
                          {QStringLiteral("-i"), QStringLiteral("de_DE"), QStringLiteral("-f"),
                           QStringLiteral("UTF-8"), target});
        qputenv("LOCPATH", m_folder.path().toLocal8Bit());
        m_active = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    }
    ~CommaLocale()
    {
        std::setlocale(LC_ALL, m_former.constData());
        qunsetenv("LOCPATH");
    }
    Q_DISABLE_COPY_MOVE(CommaLocale)

    [[nodiscard]] bool isActive() const { return m_active; }

private:
    QTemporaryDir m_folder;
    QByteArray m_former;
    bool m_active = false;
};

} // namespace mosaro::test
