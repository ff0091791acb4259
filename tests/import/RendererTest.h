#pragma once

#include "base/Text.h"
#include "import/Analysis.h"
#include "support/Pictures.h"

#include <QTemporaryDir>
#include <QtTest>

namespace mosaro::importing {

/// What became of a document that must be drawn.
struct Drawn : AnalysisResult {
    QImage shown, side; ///< Preview and side file.
    QSize size;         ///< As the metadata say.

    [[nodiscard]] QColor centre() const { return shown.pixelColor(shown.rect().center()); }
};

/// A test that puts files together and has them analysed.
class RendererTest : public QObject {
protected:
    RendererTest()
    {
        base::installTexts();
        setUpImageLibrary("test");
    }

    [[nodiscard]] QString file() const
    {
        return m_folder.filePath(QStringLiteral("an odd [1] %d*?name%20#1.file"));
    }

    [[nodiscard]] AnalysisResult analysed(DocumentType type, const QByteArray& bytes,
                                          MediaKind kind = MediaKind::Unset) const
    {
        test::writeBytes(file(), bytes);
        return analyse({file(), type, kind});
    }

    /// The file must be drawn, into pictures of that format.
    [[nodiscard]] Drawn drawn(DocumentType type, const QByteArray& bytes, const char* format = "png") const
    {
        Drawn drawn{analysed(type, bytes), {}, {}, {}};
        if (!drawn.outcome.ok())
            QTest::qFail(qPrintable(drawn.outcome.reason()), __FILE__, __LINE__);
        drawn.shown = QImage::fromData(drawn.preview, format);
        drawn.side = QImage::fromData(drawn.sideFile, format);
        drawn.size = {drawn.metadata.width, drawn.metadata.height};
        return drawn;
    }

    /// That the file fails, with a reason.
    void expectRefusal(DocumentType type, const QByteArray& bytes) const
    {
        const AnalysisResult result = analysed(type, bytes);
        QVERIFY2(!result.outcome.ok(), bytes.left(60).toHex().constData());
        QVERIFY(!result.outcome.reason().isEmpty());
    }

    QTemporaryDir m_folder;
};

} // namespace mosaro::importing
