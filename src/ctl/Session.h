#pragma once

#include "base/Result.h"
#include "ctl/Ctl.h"
#include "store/ZNDBManager.h"

namespace mosaro::ctl {

/// One call of the program: the general options, the streams, and the library once it is open.
class Session {
public:
    Session(const Environment& environment, QString libraryPath, bool json);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] const Environment& environment() const { return m_environment; }
    [[nodiscard]] bool json() const { return m_json; }
    [[nodiscard]] QTextStream& out() const { return m_environment.out; }

    /// Opens the library of "--library", else the remembered one, else the default one, which is made when
    /// missing.
    [[nodiscard]] base::Result<void> open();
    [[nodiscard]] store::ZNDBManager& library() { return m_library; }
    /// Only while the library is open.
    [[nodiscard]] store::StoreContext& context() { return *m_library.context(); }

    /// One line on the error stream.
    void complain(const QString& message) const;
    /// The same; gives the exit status.
    int fail(const QString& reason) const;
    int wrongUsage(const QString& reason, const char* command) const;

private:
    [[nodiscard]] base::Result<void> openAt(const QString& path);
    [[nodiscard]] QString knownLibrary() const;

    const Environment& m_environment;
    QString m_libraryPath;
    bool m_json;
    store::ZNDBManager m_library;
};

/// Text from a file or a library as one line that no terminal obeys.
[[nodiscard]] QString oneLine(const QString& text);

} // namespace mosaro::ctl
