#pragma once

#include "base/Result.h"

#include <QByteArray>
#include <QFile>
#include <QImage>
#include <QSizeF>
#include <QString>
#include <QTemporaryDir>

namespace mosaro::importing {

// What the renderers of documents share.

/// Opens a file to be read, when it is one, not empty, and within the limits.
[[nodiscard]] base::Result<void> openDocument(QFile& file);

/// The bytes of a file of at most `maxBytes`.
[[nodiscard]] base::Result<QByteArray> readWholeFile(const QString& path, qint64 maxBytes);

/// Another, temporary name of a file, without an extension and with nothing in it that a program could read
/// as a pattern, an option or the way to a file beside it.
class PlainName {
public:
    explicit PlainName(const QString& path);
    [[nodiscard]] bool isValid() const { return m_isValid; }
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("document")); }

private:
    QTemporaryDir m_folder;
    bool m_isValid;
};

/// A drawn document as its preview: filling the box when it is larger in any direction, else fitted or, when
/// it is tiny, on the small canvas. What counts is its size in points, which is that in pixels unless given.
[[nodiscard]] QImage previewOfDrawing(const QImage& drawing, QSizeF points = {});

/// In sRGB, when the picture says that it is in other colours.
[[nodiscard]] QImage inSrgbColors(QImage picture);

} // namespace mosaro::importing
