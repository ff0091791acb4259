#include "shell/HelpAddresses.h"

#include <QUrlQuery>

namespace mosaro::shell {

QUrl helpAddress(HelpTopic topic, const QString& version)
{
    switch (topic) {
    case HelpTopic::Help:
        return QUrl(QStringLiteral("https://mosaro.example/help"));
    case HelpTopic::ReleaseNotes:
        return QUrl(QStringLiteral("https://mosaro.example/release-notes"));
    case HelpTopic::Social:
        return QUrl(QStringLiteral("https://social.mosaro.example/@mosaro"));
    case HelpTopic::Website:
        return QUrl(QStringLiteral("https://mosaro.example/"));
    case HelpTopic::Feedback: {
        QUrl address(QStringLiteral("mailto:support@mosaro.example"));
        QUrlQuery query;
        query.addQueryItem(QStringLiteral("subject"), QStringLiteral("Mosaro %1").arg(version));
        address.setQuery(query);
        return address;
    }
    }
    return {};
}

} // namespace mosaro::shell
