#include "base/Text.h"

#include <QCoreApplication>
#include <QTranslator>

namespace mosaro::base {

QString text(const char* key)
{
    return qtTrId(key);
}

void installTexts()
{
    auto* application = QCoreApplication::instance();
    Q_ASSERT(application != nullptr);
    static const auto kName = QStringLiteral("MosaroTexts");
    if (application->findChild<QTranslator*>(kName, Qt::FindDirectChildrenOnly) != nullptr)
        return;
    auto* translator = new QTranslator(application);
    translator->setObjectName(kName);
    if (!translator->load(QStringLiteral(":/strings/mosaro_en.qm"))) {
        qWarning("The string resource is missing from the program; keys are shown instead of texts.");
        return;
    }
    QCoreApplication::installTranslator(translator);
}

} // namespace mosaro::base
