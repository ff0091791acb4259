#pragma once

#include "base/Text.h"
#include "import/Analysis.h"
#include "support/Pictures.h"

#include <QTemporaryDir>
#include <QtTest>

namespace mosaro::importing {

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
