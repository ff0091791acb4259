#pragma once

#include <QByteArray>
#include <QRectF>
#include <QString>
#include <optional>

namespace mosaro::importing {

/// A PostScript program and what its structuring comments say of it.
struct PostScriptDocument {
    QByteArray program;
    QRectF boundingBox; ///< In points, its y the lower edge; a whole sheet when there is none.
    bool hasBoundingBox = true;
    bool operator==(const PostScriptDocument&) const = default;
};

/// Reads PostScript as it is, or as a part of a file with a preview for other systems. Nothing for other
/// bytes.
[[nodiscard]] std::optional<PostScriptDocument> postScriptDocument(const QByteArray& bytes);

/// By its first bytes, whatever it is called.
[[nodiscard]] bool holdsPostScript(const QString& path);

} // namespace mosaro::importing
