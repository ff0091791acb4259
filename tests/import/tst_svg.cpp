#include "import/ImageOperations.h"
#include "import/RenderedDocument.h"
#include "import/RendererTest.h"
#include "import/SvgSize.h"
#include "support/Files.h"

using namespace mosaro;
using namespace Qt::StringLiterals;
using namespace mosaro::importing;

namespace {

constexpr const char* kSpace = "xmlns='http://www.w3.org/2000/svg'";

/// Red all over, with a size as given.
QByteArray svg(const QByteArray& attributes,
               const QByteArray& inside = "<rect width='100%' height='100%' fill='red'/>")
{
    return "<svg " + QByteArray(kSpace) + ' ' + attributes + '>' + inside + "</svg>";
}

QByteArray svgOfSize(double width, double height)
{
    return svg("width='" + QByteArray::number(width) + "' height='" + QByteArray::number(height) + "'");
}

constexpr const char* kEndlessFilter =
    "<filter id='f' primitiveUnits='userSpaceOnUse'><feMorphology operator='dilate' radius='3000'/>"
    "<feMorphology operator='dilate' radius='3000'/></filter>"
    "<rect width='3000' height='3000' filter='url(#f)'/>";

/// Each stands for ten of the one before.
QByteArray manyUses(int levels)
{
    QByteArray inside = "<g id='g0'><rect width='9' height='9'/></g>";
    for (int level = 1; level <= levels; ++level) {
        const QByteArray use = "<use href='#g" + QByteArray::number(level - 1) + "'/>";
        inside += "<g id='g" + QByteArray::number(level) + "'>" + use.repeated(10) + "</g>";
    }
    return inside;
}

} // namespace

class tst_Svg : public RendererTest {
    Q_OBJECT

private Q_SLOTS:
    void units()
    {
        const std::pair<const char*, double> rows[] = {
            {"1em", 16},       {"1ex", 16}, {"1px", 1}, {"1pt", 1.333333}, {"1pc", 16}, {"1cm", 37.795276},
            {"1mm", 3.779528}, {"1in", 96}, {"50%", 1}, {"", 1},           {"1CM", 1},  {"1cm ", 1}};
        for (const auto& [text, factor] : rows)
            QCOMPARE(unitConvert(QString::fromLatin1(text)), factor);
    }

    void declaredSize()
    {
        const QSizeF fallback = kPreviewBox;
        const std::pair<QByteArray, QSizeF> rows[] = {
            {svg("width='10cm' height='5mm'"), {377.95276, 18.89764}},
            {svg("width='100%' height='50%'"), {100, 50}},
            {svg("viewBox='0 0 800 600'"), {800, 600}},
            {svg("viewBox='0,0,800,600'"), fallback},
            {svg("viewBox='0  0 800 600'"), fallback},
            {svg("viewBox='0\n0\t800 600'"), {800, 600}}, // what XML makes of other white space
            {svg("viewBox='0 0 800 600' width='2in'"), {192, 600}},
            {svg("viewBox='0 0 800 600' width='0'"), fallback},
            {svg("width='-5' height='5'"), fallback},
            {svg("width='1e2px' height=' .5e1 px'"), {100, 5}},
            {svg("width='12abc' height='0x20'"), fallback},
            {svg("width='1e999' height='9'"), fallback},
            {svg(""), fallback},
            {"", fallback},
            {"<html><svg width='5' height='5'/></html>", fallback},
            {"<s:svg xmlns:s='x' width='5' height='6'><s:svg width='9' height='9'/></s:svg>", {5, 6}},
            {"<s:svg width='5' height='6'/>", {5, 6}},
            {"<!DOCTYPE svg [<!ENTITY w '70'>]><svg width='&w;' height='6'/>", {70, 6}},
            {"<!DOCTYPE svg SYSTEM 'file:///etc/passwd'><svg width='5' height='6'/>", {5, 6}},
            // Broken in ways that others still read.
            {"\n<?xml version='1.0'?><svg width='5' height='6'/>", {5, 6}},
            {"<svg width='5' height='6'><g></svg>", {5, 6}},
            {"<svg width='5' height='6' x=&y z></svg>", {5, 6}},
            {"<?xml version='1.0' encoding='x-unknown'?><svg width=\"5\" height='6'", {5, 6}}};
        for (const auto& [document, size] : rows)
            QVERIFY2(svgSizeOf(document) == size, document.constData());
        QCOMPARE(svgSize({}), QSizeF(0, 0));
        QCOMPARE(svgSize(u"/no/such/file.svg"_s), fallback);
    }

    void previewAndSideFile()
    {
        const std::tuple<QSizeF, QSize, QSize> rows[] = {
            {{132, 132}, {132, 132}, {132, 132}},    {{133, 132}, kPreviewBox, {133, 132}},
            {{132.4, 100}, kPreviewBox, {132, 100}}, // by the declared size it is no tiny one
            {{300, 40}, kPreviewBox, {300, 40}},     {{300, 200.6}, {300, 201}, {300, 201}},
            {{460, 360}, {460, 360}, {460, 360}},    {{461, 100}, kPreviewBox, {461, 100}},
            {{900, 400}, kPreviewBox, {900, 400}},   {{0.2, 0.1}, {132, 132}, {1, 1}},
            {{1e9, 1e9}, kPreviewBox, {5000, 5000}}, {{1e300, 1}, kPreviewBox, {32000, 1}}};
        for (const auto& [declared, preview, side] : rows) {
            const Drawn drawing = drawn(DocumentType::Svg, svgOfSize(declared.width(), declared.height()));
            QCOMPARE(drawing.shown.size(), preview);
            QCOMPARE(drawing.side.size(), side);
            // One pixel may be covered in part.
            QCOMPARE(drawing.side.pixelColor(side.width() / 2, side.height() / 2).rgb(),
                     QColor(Qt::red).rgb());
            QCOMPARE(drawing.sideFileSuffix, u"_svg.png"_s);
            QCOMPARE(drawing.documentSize, declared);
            QVERIFY(drawing.metadata.hasAlpha);
            // Not the black of the margins, where the drawing itself fills the picture.
            if (side.width() > 1 && side.height() > 1)
                QVERIFY(drawing.colors.size() == 1 && drawing.colors.front().color.red > 0.9);
        }
    }

    // Colours, a shape without a ground, and the whole of a document that is fitted into another shape.
    void whatIsDrawn()
    {
        const QByteArray document =
            svg("width='200' height='200' viewBox='0 0 10 20'",
                "<rect width='10' height='10' fill='#369'/><rect y='10' width='5' height='10' fill='lime'/>");
        const QImage side = drawn(DocumentType::Svg, document).side;
        QCOMPARE(side.pixelColor(100, 50), QColor(0x33, 0x66, 0x99));
        QCOMPARE(side.pixelColor(75, 150), QColor(Qt::green));
        QCOMPARE(side.pixelColor(125, 150).alpha(), 0);
        QCOMPARE(side.pixelColor(20, 50).alpha(), 0); // beside the document
    }

    void reachesNoOtherFile()
    {
        const QString secret = m_folder.filePath(u"secret.png"_s);
        const QString style = m_folder.filePath(u"style.css"_s);
        QVERIFY(QImage(8, 8, QImage::Format_RGB32).save(secret));
        test::writeFile(style, "rect { fill: black }");
        for (const QByteArray& reference :
             {"file://" + secret.toUtf8(), "secret.png"_ba, "./secret.png"_ba}) {
            const QByteArray inside =
                "<style>@import url('style.css');</style><rect width='9' height='9' fill='lime'/>"
                "<image width='9' height='9' href='" +
                reference + "'/>";
            QCOMPARE(drawn(DocumentType::Svg, svg("width='9' height='9'", inside)).side.pixelColor(4, 4),
                     QColor(Qt::green));
        }
        const AnalysisResult entity =
            analysed(DocumentType::Svg, "<!DOCTYPE svg [<!ENTITY e SYSTEM 'file://" + style.toUtf8() +
                                            "'>]>" + svg("width='9' height='9'", "<text>&e;</text>"));
        QVERIFY(!entity.outcome.ok() || QImage::fromData(entity.sideFile).pixelColor(4, 4).alpha() == 0);
    }

    void badDocuments()
    {
        AnalysisLimits limits;
        limits.maxSeconds = 1;
        for (const QByteArray& document :
             {QByteArray(), QByteArray("no svg"), QByteArray("<html/>"), QByteArray("\x1f\x8b\x08"),
              svg("").chopped(6), svg("width='9' height='9'", manyUses(9)),
              "<!DOCTYPE svg [<!ENTITY a '" + QByteArray(9999, 'x') + "'><!ENTITY b '" +
                  QByteArray("&a;").repeated(9999) + "'>]>" +
                  svg("", "<text>" + QByteArray("&b;").repeated(99) + "</text>")}) {
            test::writeFile(file(), document);
            const auto rendered = renderSvg(file(), limits);
            QVERIFY2(!rendered.ok(), document.left(80).constData());
            QVERIFY(!rendered.reason().isEmpty());
        }
        test::writeFile(file(), svg("width='3000' height='3000'", kEndlessFilter));
        QCOMPARE(renderSvg(file(), limits).reason(), base::text("Failure.Image.TooSlow"));
    }
};

QTEST_GUILESS_MAIN(tst_Svg)
#include "tst_svg.moc"
