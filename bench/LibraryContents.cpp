#include "bench/LibraryContents.h"

#include <QBuffer>
#include <QImage>
#include <cmath>

namespace mosaro::bench {

namespace {

const char* const kSubjects[] = {"Homepage",  "Landing page",  "Login",     "Checkout",   "Settings",
                                 "Profile",   "Dashboard",     "Poster",    "Logo",       "Icon set",
                                 "Wireframe", "Moodboard",     "Café menu", "Übersicht",  "Façade",
                                 "Packaging", "Business card", "Banner",    "Newsletter", "Onboarding",
                                 "写真",      "Portrait",      "Landscape", "Texture"};
const char* const kQualities[] = {"dark", "light", "blue", "retina", "final", "draft", "mobile", "tablet",
                                  "wide", "hero",  "flat", "warm",   "old",   "new",   "bold",   "print"};
constexpr qint64 kFirstDay = Q_INT64_C(1577836800000); // 2020-01-01
constexpr qint64 kDay = Q_INT64_C(86400000);

struct Size {
    double width, height;
};
constexpr Size kSizes[] = {{1920, 1080}, {1280, 800},  {640, 960}, {750, 1334},
                           {1024, 1024}, {512, 512},   {128, 128}, {4000, 3000},
                           {6000, 4000}, {2048, 1536}, {800, 600}, {2560, 1440}};

template <class T, size_t N>
const T& pick(const T (&table)[N], LibraryContents& contents)
{
    return table[contents.index(N)];
}

QByteArray pngOf(int side)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(x * 255 / side, y * 255 / side, 128));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

} // namespace

int LibraryContents::below(int limit)
{
    return static_cast<int>(m_random() % static_cast<unsigned>(limit));
}

QString LibraryContents::identifier()
{
    const quint64 high = m_random();
    const quint64 low = m_random();
    const QString digits =
        (QStringLiteral("%1%2").arg(high, 16, 16, QLatin1Char('0')).arg(low, 16, 16, QLatin1Char('0')))
            .toUpper();
    return digits.mid(0, 8) + u'-' + digits.mid(8, 4) + u'-' + digits.mid(12, 4) + u'-' + digits.mid(16, 4) +
           u'-' + digits.mid(20);
}

QString LibraryContents::colorID()
{
    const auto part = [this] { return QString::number(below(256) / 255.0, 'f', 6); };
    const QString red = part();
    const QString green = part();
    return red + u'+' + green + u'+' + part() + QStringLiteral("+1.000000");
}

qint64 LibraryContents::date()
{
    return kFirstDay + below(5 * 365) * kDay + below(static_cast<int>(kDay));
}

QString LibraryContents::title(int number)
{
    const QString subject = QString::fromUtf8(pick(kSubjects, *this));
    const QString quality = QString::fromUtf8(pick(kQualities, *this));
    switch (below(5)) {
    case 0:
        return QStringLiteral("IMG_%1").arg(number % 10000, 4, 10, QLatin1Char('0'));
    case 1:
        return QStringLiteral("Screen Shot %1").arg(number);
    case 2:
        return QStringLiteral("%1 %2 v%3").arg(subject, quality).arg(below(30));
    case 3:
        return QStringLiteral("%1-%2@%3x")
            .arg(subject.toLower().replace(u' ', u'-'), quality)
            .arg(1 + below(3));
    default:
        return QStringLiteral("%1 %2").arg(subject).arg(number);
    }
}

QString LibraryContents::tagTitle(int number)
{
    return QStringLiteral("%1 %2").arg(QString::fromUtf8(kQualities[number % 16])).arg(number / 16 + 1);
}

Item LibraryContents::item(int number)
{
    static const char* const kExtensions[] = {"jpg", "png", "gif", "tiff", "pdf"};
    static constexpr int kTypes[] = {1, 6, 5, 3, 0};
    Item item;
    item.id = identifier();
    item.title = title(number);
    const size_t type = below(10) < 5 ? 0 : index(5);
    item.documentType = kTypes[type];
    item.fileName = item.title + u'.' + QLatin1String(kExtensions[type]);
    item.notes = below(12) == 0 ? QStringLiteral("Reference for %1, seen in the studio").arg(title(number))
                                : QString();
    item.created = date();
    item.modified = item.created + below(30) * kDay;
    item.imported = item.modified + below(90) * kDay;
    const Size size = pick(kSizes, *this);
    item.width = size.width;
    item.height = size.height;
    item.fileSize = static_cast<qint64>(size.width * size.height * (0.2 + below(1000) / 1000.0));
    item.kind = 4 + below(12);
    item.rating = std::max(0, below(11) - 5);
    item.label = std::max(0, below(20) - 12);
    item.hasAlpha = below(2);
    return item;
}

const QByteArray& LibraryContents::previewBytes(bool preview)
{
    static const QByteArray kPreview = pngOf(256);
    static const QByteArray kOriginal = pngOf(64);
    return preview ? kPreview : kOriginal;
}

} // namespace mosaro::bench
