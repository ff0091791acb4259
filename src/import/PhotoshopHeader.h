#pragma once

#include "import/Analysis.h"

#include <QByteArray>
#include <QSize>
#include <optional>

class QIODevice;

namespace mosaro::importing {

/// What the head and the resources of a Photoshop document tell. Its maker publishes the form of the file
/// ("Photoshop File Formats", the sections on the file header and the image resources); every length in it is
/// checked.
[[nodiscard]] std::optional<ImageMetadata> readPhotoshopHeader(QIODevice& file);

/// What it takes to read the merged picture.
struct PhotoshopPixels {
    enum Model { Gray, Rgb, Cmyk, Lab };

    QSize size;
    int depth = 8;
    Model model = Rgb;
    int channels = 0;      ///< All that are stored; the first of them are the colours.
    bool hasAlpha = false; ///< The first behind the colours, or a colour of the palette, is the transparency.
    bool isMerged = true;  ///< Some documents are saved with an empty picture, and only their layers.
    QByteArray palette;    ///< 256 of red, of green and of blue; empty without one.
    int transparent = -1;  ///< The colour of the palette that is none; -1 for none such.
    QByteArray profile;
    bool isLarge = false; ///< Of the form for large documents, which has longer lengths.
    qint64 at = 0;        ///< Where their section begins.

    [[nodiscard]] int colors() const { return model == Gray ? 1 : model == Cmyk ? 4 : 3; }
};
/// Nothing for a damaged document, and for one whose colours cannot be read here.
[[nodiscard]] std::optional<PhotoshopPixels> readPhotoshopLayout(QIODevice& file);

} // namespace mosaro::importing
