#pragma once

// The typed faces of StoreContext; included by its header only.

namespace mosaro::store {

template <class T>
std::shared_ptr<Record> StoreContext::make(StoreContext& context, RowId id)
{
    return std::shared_ptr<T>(new T(context, id));
}

template <class T>
std::vector<std::shared_ptr<T>> StoreContext::cast(const Records& records)
{
    std::vector<std::shared_ptr<T>> typed;
    typed.reserve(records.size());
    for (const auto& record : records)
        typed.push_back(std::static_pointer_cast<T>(record));
    return typed;
}

template <class T>
std::shared_ptr<T> StoreContext::insert()
{
    return std::static_pointer_cast<T>(insertRecord(&make<T>));
}

template <class T>
std::shared_ptr<T> StoreContext::object(RowId id)
{
    const Records found = recordsOf(T::info(), &make<T>, std::span(&id, 1));
    return found.empty() ? nullptr : std::static_pointer_cast<T>(found.front());
}

template <class T>
std::vector<std::shared_ptr<T>> StoreContext::objects(std::span<const RowId> ids)
{
    return cast<T>(recordsOf(T::info(), &make<T>, ids));
}

template <class T>
base::Result<std::vector<std::shared_ptr<T>>> StoreContext::fetch(const Query& query)
{
    const auto records = fetchRecords(T::info(), &make<T>, query);
    if (!records)
        return records.failure();
    return cast<T>(records.value());
}

template <class T>
std::shared_ptr<T> StoreContext::first(const Predicate& predicate)
{
    Query query;
    query.predicate = predicate;
    query.limit = 1;
    const auto records = fetchRecords(T::info(), &make<T>, query);
    if (!records || records.value().empty())
        return nullptr;
    return std::static_pointer_cast<T>(records.value().front());
}

template <class T>
std::shared_ptr<T> StoreContext::toOne(const Record& record, int attribute)
{
    return std::static_pointer_cast<T>(target(record, attribute, &make<T>));
}

template <class T>
std::vector<std::shared_ptr<T>> StoreContext::toMany(const Record& record, int inverse)
{
    return cast<T>(sources(record, T::info(), inverse, &make<T>));
}

template <class T>
qint64 StoreContext::countToMany(const Record& record, int inverse)
{
    return countSources(record, T::info(), inverse);
}

} // namespace mosaro::store
