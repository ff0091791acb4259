#include "store/RecordReference.h"

#include "base/PropertyList.h"

namespace mosaro::store {

namespace {

const QString kKey = QStringLiteral("URIRepresentation");

QString prefixFor(const StoreContext& context, const EntityInfo& entity)
{
    return QStringLiteral("x-mosaro://%1/%2/p").arg(context.storeID(), entity.name);
}

} // namespace

QByteArray archivedReference(const Record& record)
{
    if (!record.isSaved() || record.isRemoved())
        return {};
    const QString address = prefixFor(*record.context(), record.entity()) + QString::number(record.rowId());
    const auto archive =
        base::writePropertyList(QVariantMap{{kKey, address}}, base::PropertyListFormat::Binary);
    return archive ? archive.value() : QByteArray();
}

RowId referencedRow(const StoreContext& context, const EntityInfo& entity, const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return kUnsavedRow;
    const auto archive = base::readPropertyList(bytes);
    const QString address = archive ? archive.value().toMap().value(kKey).toString() : QString();
    const QString prefix = prefixFor(context, entity);
    if (!address.startsWith(prefix))
        return kUnsavedRow;
    bool isNumber = false;
    const RowId row = address.mid(prefix.size()).toLongLong(&isNumber);
    return isNumber && row > 0 ? row : kUnsavedRow;
}

} // namespace mosaro::store
