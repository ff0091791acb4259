#include "base/Text.h"
#include "import/DecoderProcess.h"
#include "support/Children.h"
#include "support/Parallel.h"

#include <QtTest>

using namespace mosaro;
using namespace Qt::StringLiterals;
using importing::DecoderProcess;

namespace {

constexpr QSize kOnePixel{1, 1};
constexpr importing::ChildLimits kLimits{2, 0, 0};

// A decoder whose documents, of one line, say what it shall do. The four bytes of its pixel are the digits of
// how many documents it has had. What it reads of a request's numbers comes before the line.
const QString kScript = uR"(
    number=0
    while read -r line; do
        number=$((number + 1))
        case $line in
            *good) printf '\0\0\0\0\4\0\0\0%04d' $number ;;
            *torn) printf '\0\0\0\0\4\0\0\0x'; exit ;;
            *dies) kill -SEGV $$ ;;
            *ends) exit ;;
            *late) sleep 60 & sleep 60 ;;
            *junk) echo junk and more junk ;;
            *huge) printf '\0\0\0\0\377\377\377\377'; cat /dev/zero ;;
            *long) printf '\0\0\0\0\4\0\0\0more and more' ;;
            *none) printf '\1\0\0\0\0\0\0\0' ;;
            *much) printf '\2\0\0\0\0\0\0\0' ;;
        esac
    done)"_s;

} // namespace

class tst_DecoderProcess : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { base::installTexts(); }
    void init() { m_descriptors = test::openDescriptors(); }
    void cleanup()
    {
        QVERIFY(test::hasNoChild());
        QCOMPARE(test::openDescriptors(), m_descriptors);
    }

    /// Whatever became of one document, the next one is drawn.
    void failures()
    {
        const QString died = base::text("Failure.Child.Died", u"sh"_s);
        const QString output = base::text("Failure.Child.Output");
        // The reason, and which one the next document is for its decoder.
        const std::tuple<QByteArray, QString, int> rows[] = {
            {"none", base::text("Failure.Image.Damaged"), 2},
            {"much", output, 4},
            {"torn", died, 1},
            {"dies", died, 1},
            {"ends", died, 1},
            {"junk", output, 1},
            {"huge", output, 1},
            {"late", base::text("Failure.Image.TooSlow"), 1}};
        DecoderProcess decoder(u"/bin/sh"_s, {u"-c"_s, kScript});
        for (const auto& [document, reason, next] : rows) {
            const base::Result<QImage> failed = drawn(decoder, document);
            QVERIFY2(!failed.ok(), document.constData());
            QCOMPARE(failed.reason(), reason);
            QCOMPARE(number(drawn(decoder, "good")), next);
        }
        QVERIFY(drawn(decoder, "long").ok());
        QCOMPARE(number(drawn(decoder, "good")), 1); // What was said too much is nobody's answer.
        DecoderProcess missing(u"/no/such/decoder"_s);
        QVERIFY(!drawn(missing, "good").ok());
    }

    void endsBetweenDocuments()
    {
        DecoderProcess decoder(u"/bin/sh"_s,
                               {u"-c"_s, u"read -r line; printf '\\0\\0\\0\\0\\4\\0\\0\\0%04d' 1"_s});
        for (int time = 0; time < 3; ++time) {
            QCOMPARE(number(drawn(decoder, "good")), 1);
            siginfo_t ended{};
            QCOMPARE(::waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT), 0);
        }
    }

    void isReplacedNowAndThen()
    {
        DecoderProcess decoder(u"/bin/sh"_s, {u"-c"_s, kScript});
        int documents = 1;
        while (documents < 2000 && number(drawn(decoder, "good")) == documents)
            ++documents;
        QVERIFY(documents > 100 && documents < 2000);
    }

    // No decoder keeps another's socket open, whenever they start.
    void severalAtOnce()
    {
        const auto survives = [](int) {
            DecoderProcess decoder(u"/bin/sh"_s, {u"-c"_s, kScript});
            return number(drawn(decoder, "good")) == 1 && !drawn(decoder, "ends").ok() &&
                   number(drawn(decoder, "good")) == 1;
        };
        QCOMPARE(test::rightAtOnce(24, survives), 24);
    }

private:
    static base::Result<QImage> drawn(DecoderProcess& decoder, const QByteArray& document)
    {
        return decoder.draw(document + '\n', kOnePixel, kLimits);
    }
    static int number(const base::Result<QImage>& picture)
    {
        return picture ? QByteArray(reinterpret_cast<const char*>(picture.value().constBits()), 4).toInt()
                       : -1;
    }

    qsizetype m_descriptors = 0;
};

QTEST_GUILESS_MAIN(tst_DecoderProcess)
#include "tst_decoderprocess.moc"
