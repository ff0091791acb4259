#pragma once

#include "store/Media.h"

#include <QJsonObject>
#include <QTextStream>
#include <memory>

namespace mosaro::ctl {

/// A record under its entity's own attribute names; dates as ISO 8601 in UTC, an attribute never written as
/// null.
[[nodiscard]] QJsonObject recordJson(const store::Record& record);

/// The same for an item, with its tags, colours, collection and absolute paths.
[[nodiscard]] QJsonObject mediaJson(const std::shared_ptr<store::Media>& media, const QString& masterDirPath);

/// One "name: value" a line, for people; what has no value is left out.
void printFields(QTextStream& out, const QJsonObject& object);

/// An array of objects, one a line, written as they come.
class JsonArrayWriter {
public:
    explicit JsonArrayWriter(QTextStream& out);
    ~JsonArrayWriter();
    JsonArrayWriter(const JsonArrayWriter&) = delete;
    JsonArrayWriter& operator=(const JsonArrayWriter&) = delete;

    void write(const QJsonObject& object);

private:
    QTextStream& m_out;
    bool m_isEmpty = true;
};

} // namespace mosaro::ctl
