#pragma once

#include <QString>
#include <QUrl>

namespace mosaro::shell {

enum class HelpTopic { Help, ReleaseNotes, Feedback, Social, Website };

/// The one table of outside addresses. Feedback is a mail with the version in its subject.
[[nodiscard]] QUrl helpAddress(HelpTopic topic, const QString& version);

} // namespace mosaro::shell
