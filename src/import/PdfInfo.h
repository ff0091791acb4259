#pragma once

#include "import/Analysis.h"

#include <QByteArray>
#include <QSizeF>

namespace mosaro::importing {

/// What a PDF document says of itself and of its first page.
struct PdfInfo {
    PdfMetadata metadata;
    QSizeF mediaBox; ///< In points, as stored.
    QSizeF pageSize; ///< Of what is shown of it, as it is looked at.
    bool isEncrypted = false;
};

/// Reads the output of `pdfinfo -box -isodates -enc UTF-8`. The texts in it are a stranger's: they may have
/// several lines, and lines that look like pdfinfo's own.
[[nodiscard]] PdfInfo parsedPdfInfo(const QByteArray& output);

} // namespace mosaro::importing
