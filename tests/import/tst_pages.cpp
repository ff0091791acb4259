#include "import/ImageOperations.h"
#include "import/PdfInfo.h"
#include "import/PostScriptDocument.h"
#include "import/RendererTest.h"
#include "support/Bytes.h"
#include "support/Files.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

constexpr const char* kRed = "1 0 0 setrgbcolor\n";

/// A picture with such a bounding box.
QByteArray postScript(const QByteArray& box, const QByteArray& program)
{
    return "%!PS-Adobe-3.0 EPSF-3.0\n%%BoundingBox: " + box + "\n%%EndComments\n" + program;
}

/// The smallest document that is whole; readers build its table anew.
QByteArray pdf(const QByteArray& page, const QByteArray& trailer = {})
{
    const QByteArray drawing = "/State gs 1 0 0 rg 0 0 2000 2000 re f";
    return "%PDF-1.6\n1 0 obj <</Type/Catalog/Pages 2 0 R>> endobj\n"
           "2 0 obj <</Type/Pages/Kids[3 0 R]/Count 1>> endobj\n"
           "3 0 obj <</Type/Page/Parent 2 0 R/Contents 4 0 R " +
           page +
           ">> endobj\n"
           "4 0 obj <</Length " +
           QByteArray::number(drawing.size()) + ">> stream\n" + drawing +
           "\nendstream endobj\n5 0 obj <</Title(One\\nPages:          99)/Author(A\\nB)"
           "/CreationDate(D:20200102030405+01'00')>> endobj\n"
           "trailer <</Root 1 0 R /Info 5 0 R " +
           trailer + ">>\n%%EOF\n";
}

QColor at(const QImage& image, double across, double down)
{
    return image.pixelColor(int(image.width() * across), int(image.height() * down));
}

} // namespace

class tst_Pages : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void pdfPages()
    {
        const std::tuple<QByteArray, QSizeF, QSize> rows[] = {
            {"/MediaBox[0 0 595.276 841.89]", {595.276, 841.89}, {255, 360}},
            {"/MediaBox[-10 0 590 300]", {600, 300}, {460, 230}},
            {"/MediaBox[0 0 2000 100]", {2000, 100}, {460, 360}}, // Too flat for the box, so it fills it.
            {"/MediaBox[0 0 100 1000]", {100, 1000}, {460, 360}},
            {"/MediaBox[0 0 90 60]", {90, 60}, {460, 307}},
            {"/MediaBox[0 0 600 400]/CropBox[0 0 200 400]/Rotate 90", {600, 400}, {460, 230}},
        };
        for (const auto& [page, size, preview] : rows) {
            const Drawn document = drawn(DocumentType::Pdf, pdf(page), nullptr);
            QCOMPARE(document.shown.size(), preview);
            QCOMPARE(document.centre(), QColor(Qt::red));
            QCOMPARE(document.documentSize, size);
            QVERIFY(document.sideFile.isEmpty() && !document.metadata.hasAlpha);
            QCOMPARE(document.kind, MediaKind::Pdf);
            QCOMPARE(document.pdf->pageCount, 1);
            QCOMPARE(document.pdf->version, u"1.6"_s);
            QCOMPARE(document.pdf->title, u"One\nPages:          99"_s);
            QCOMPARE(document.pdf->author, u"A\nB"_s);
            QCOMPARE(document.pdf->producer, QString());
            QCOMPARE(document.pdf->created.toUTC(), QDateTime({2020, 1, 2}, {2, 4, 5}, Qt::UTC));
            QVERIFY(!document.pdf->modified.isValid());
        }
        QCOMPARE(analysed(DocumentType::Pdf, pdf("/MediaBox[0 0 9 9]"), MediaKind::Web).kind, MediaKind::Web);
    }

    void illustratorPages()
    {
        const Drawn page = drawn(DocumentType::Illustrator, pdf("/MediaBox[-500 0 500 700]"));
        QCOMPARE(page.side.size(), QSize(1000, 700));
        QCOMPARE(at(page.side, 0.9, 0.5), QColor(Qt::red));
        QCOMPARE(at(page.side, 0.1, 0.5).alpha(), 0);
        QCOMPARE(page.shown.size(), kPreviewBox);
        QCOMPARE(page.sideFileSuffix, u"_ai.png"_s);
        QCOMPARE(page.documentSize, QSizeF(1000, 700));
        QCOMPARE(page.kind, MediaKind::Other);
        QCOMPARE(page.pdf->pageCount, 1);
        const Drawn clear = drawn(DocumentType::Illustrator,
                                  pdf("/MediaBox[0 0 200 200]/Resources<</ExtGState<</State<</ca .2>>>>>>"));
        QCOMPARE(at(clear.side, 0.5, 0.5), QColor(255, 0, 0, 51));
        // Drawn larger in parts, not by pixels; the lengths are no whole numbers.
        QVERIFY(analysed(DocumentType::Illustrator, pdf("/MediaBox[0 0 399.005 399.005]")).outcome.ok());

        const Drawn old = drawn(DocumentType::Illustrator,
                                postScript("0 0 90 80", QByteArray(kRed) + "0 0 45 80 rectfill"));
        QVERIFY(!old.pdf && old.documentSize.isEmpty() && !old.metadata.hasAlpha);
        QCOMPARE(old.side.size(), QSize(90, 80));
        QCOMPARE(old.shown.size(), QSize(132, 132));
    }

    void epsPictures()
    {
        const std::tuple<QByteArray, QSizeF, QSize, QSize> rows[] = {
            {"0 0 1000 800", {1000, 800}, {1000, 800}, {460, 360}},
            {"-100 -200 361 -190", {461, 10}, {461, 10}, {460, 360}},
            {"10 20 210 120", {200, 100}, {200, 100}, {460, 360}},
            {"0 0 132 132", {132, 132}, {132, 132}, {132, 132}},
            {"10 10 40.5 40.25", {30.5, 30.25}, {31, 31}, {132, 132}},
            {"0 0 60000 10", {60000, 10}, {30000, 5}, {460, 360}},
            {"0 0 20000 20000", {20000, 20000}, {4000, 4000}, {460, 360}},
        };
        for (const auto& [box, size, side, preview] : rows) {
            // Red on the left half.
            const QByteArray corner = box.left(box.indexOf(' ', box.indexOf(' ') + 1));
            const QByteArray half =
                QByteArray::number(size.width() / 2) + ' ' + QByteArray::number(size.height());
            const Drawn picture =
                drawn(DocumentType::Eps, postScript(box, kRed + corner + ' ' + half + " rectfill"));
            QCOMPARE(picture.side.size(), side);
            QVERIFY2(at(picture.side, 0.25, 0.1) == QColor(Qt::red), box.constData());
            QCOMPARE(at(picture.side, 0.25, 0.9), QColor(Qt::red));
            QCOMPARE(at(picture.side, 0.75, 0.5).alpha(), 0);
            QCOMPARE(picture.shown.size(), preview);
            QCOMPARE(at(picture.shown, 0.49, 0.5), QColor(Qt::red));
            QCOMPARE(at(picture.shown, 0.9, 0.5).alpha(), 0);
            QCOMPARE(picture.documentSize, size);
            QCOMPARE(picture.kind, MediaKind::Other);
            QVERIFY(picture.metadata.hasAlpha);
        }
    }

    void postScriptFiles()
    {
        const QByteArray plain = postScript("1 2 3 4", {});
        const QByteArray binary = test::Bytes()
                                      .put("\xc5\xd0\xd3\xc6")
                                      .put32(32, plain.size(), 0, 0, 0, 0, 0)
                                      .put(plain + "preview")
                                      .all();
        QCOMPARE(postScriptDocument(binary)->program, plain);
        QVERIFY(!postScriptDocument(binary.left(20)) && !postScriptDocument(binary.left(32)));

        const std::pair<QByteArray, QRectF> boxes[] = {
            {plain, {1, 2, 2, 2}},
            {"\x04%!PS\r%%BoundingBox:-1 -2 3 4\r", {-1, -2, 4, 6}},
            {postScript("0 0 9 9\n%%HiResBoundingBox: 0 0 8.5 8.25", {}), {0, 0, 8.5, 8.25}},
            {postScript("0 0 9 9\n%%HiResBoundingBox: 0 0 0 0", {}), {0, 0, 9, 9}},
            {postScript("(atend)", "showpage\n%%Trailer\n%%BoundingBox: 0 0 5 6\n"), {0, 0, 5, 6}},
            {postScript("0 0 nan 9", "%%BoundingBox: 0 0 5 6"), {0, 0, 612, 792}},
            {postScript("0 0 1e300 9", {}), {0, 0, 612, 792}},
        };
        for (const auto& [bytes, box] : boxes)
            QCOMPARE(postScriptDocument(bytes)->boundingBox, box);
        for (const QByteArray& other : {QByteArray(), QByteArray("%PDF-1.4"), QByteArray("text %!PS")})
            QVERIFY(!postScriptDocument(other));
    }

    void hostileDocuments()
    {
        using enum DocumentType;
        const QString secret = m_folder.filePath(u"secret"_s);
        test::writeFile(secret, "1 0 0 setrgbcolor 0 0 9 9 rectfill");
        const auto eps = [](const QByteArray& program) { return postScript("0 0 9 9", program); };
        const QByteArray key = "(0123456789012345678901234567890\\062)";
        const QByteArray encrypted =
            pdf("/MediaBox[0 0 9 9]",
                "/ID[<00><00>]/Encrypt<</Filter/Standard/V 1/R 2/P -4/O" + key + "/U" + key + ">>");
        const QString noPage = base::text("Failure.PostScript.NoPage");
        const QString tooLarge = base::text("Failure.Image.TooLarge", u"900000"_s, u"9"_s);
        const QString died = base::text("Failure.Child.Died", u"gs"_s);
        const std::tuple<DocumentType, QByteArray, QString> rows[] = {
            {Pdf, encrypted, base::text("Failure.Document.Encrypted")},
            {Pdf, pdf("/MediaBox[0 0 900000 9]/CropBox[0 0 9 9]"), tooLarge},
            {Pdf, pdf("/MediaBox[0 0 90000 0.01]"),
             base::text("Failure.Document.TooThin", u"90000"_s, u"0.01"_s)},
            {Pdf, "%PDF-1.4\nnothing", base::text("Failure.Child.Died", u"pdfinfo"_s)},
            {Pdf, {}, base::text("Failure.Image.Empty")},
            {Eps, eps("(" + secret.toUtf8() + ") run"), died},
            {Eps, eps("(%pipe%touch " + secret.toUtf8() + "2) (w) file"), died},
            {Eps, eps("[ { 1000000 string } loop"), died},
            {Eps, eps("quit"), noPage},
            {Eps, "%!PS\n/procedure { } def", noPage},
            {Eps, "%!PS\n/ProcSet defineresource", noPage},
            {Eps, "text", base::text("Failure.Image.NotAPicture")},
            {Eps, postScript("0 0 900000 9", {}), tooLarge},
        };
        for (const auto& [type, bytes, reason] : rows) {
            const AnalysisResult result = analysed(type, bytes);
            QVERIFY2(!result.outcome.ok(), bytes.constData());
            QCOMPARE(result.outcome.reason(), reason);
        }
        QVERIFY(!QFileInfo::exists(secret + u'2'));
        // Of endless pages only the first is asked for.
        QVERIFY(analysed(Eps, eps("0 0 9 9 rectfill { showpage } loop")).outcome.ok());
    }
};

QTEST_MAIN(tst_Pages)
#include "tst_pages.moc"
