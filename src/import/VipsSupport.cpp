#include "import/VipsSupport.h"

#include "import/Analysis.h"

#include <QImageReader>
#include <QSysInfo>
#include <array>
#include <cmath>
#include <lcms2.h>
#include <malloc.h>
#include <mutex>
#include <tiffio.h>

namespace mosaro::importing {

namespace {

constexpr const char* kProfileField = VIPS_META_ICC_NAME;

void dropLogMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

// Pictures come and go in blocks of many megabytes, on threads that come and go too. Unless the allocator is
// told to give large blocks back and to share its pools, it keeps several hundred megabytes (measured).
void setUpAllocator()
{
    constexpr int kMegabyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, 4 * kMegabyte);
    mallopt(M_TRIM_THRESHOLD, 8 * kMegabyte);
    mallopt(M_ARENA_MAX, 2);
}

void startImageLibrary(const char* programName)
{
    setUpAllocator();
    if (VIPS_INIT(programName) != 0)
        qFatal("The image library does not start: %s", vips_error_buffer());
    // Many small jobs run side by side, each on one thread; nothing is ever asked for twice.
    vips_concurrency_set(1);
    vips_cache_set_max(0);
    // Only the loaders that are called by name and are fit for strangers' files.
    vips_block_untrusted_set(TRUE);
    vips_operation_block_set("VipsForeignLoadJp2k", FALSE);
    // What a damaged file makes the libraries say is told as the outcome of its analysis.
    g_log_set_handler("VIPS", static_cast<GLogLevelFlags>(G_LOG_LEVEL_WARNING | G_LOG_LEVEL_INFO),
                      dropLogMessage, nullptr);
    TIFFSetErrorHandler(nullptr);
    TIFFSetWarningHandler(nullptr);
    const qint64 bytes = analysisLimits().maxPixelsWithoutStreaming * 4;
    QImageReader::setAllocationLimit(static_cast<int>(bytes >> 20) + 1);
}

std::once_flag& startedOnce()
{
    static std::once_flag flag;
    return flag;
}

VipsPtr icc(VipsImage* image, const char* fallbackProfile)
{
    return vipsMake([&](VipsImage** out) {
        if (fallbackProfile)
            return vips_icc_transform(image, out, "srgb", "input_profile", fallbackProfile, "intent",
                                      VIPS_INTENT_RELATIVE, "black_point_compensation", TRUE, nullptr);
        return vips_icc_transform(image, out, "srgb", "embedded", TRUE, "intent", VIPS_INTENT_RELATIVE,
                                  "black_point_compensation", TRUE, nullptr);
    });
}

/// Odd pictures (many bands, unknown meaning): the first three bands as they are.
VipsPtr firstBands(VipsImage* image)
{
    const int bands = image->Bands >= 3 ? 3 : 1;
    VipsPtr few =
        vipsMake([&](VipsImage** out) { return vips_extract_band(image, out, 0, "n", bands, nullptr); });
    if (!few || bands == 3)
        return few;
    std::array<VipsImage*, 3> three = {few.get(), few.get(), few.get()};
    return vipsMake([&](VipsImage** out) { return vips_bandjoin(three.data(), out, 3, nullptr); });
}

VipsPtr convertedToSrgb(VipsImage* image)
{
    const bool cmyk = image->Type == VIPS_INTERPRETATION_CMYK;
    VipsPtr result;
    if (hasForeignProfile(image))
        result = icc(image, nullptr);
    if (!result && cmyk)
        result = icc(image, "cmyk");
    if (!result && vips_colourspace_issupported(image))
        result = vipsMake(
            [&](VipsImage** out) { return vips_colourspace(image, out, VIPS_INTERPRETATION_sRGB, nullptr); });
    return result ? std::move(result) : firstBands(image);
}

void clampToAlpha(QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        uchar* pixel = image.scanLine(y);
        for (int x = 0; x < image.width(); ++x, pixel += 4) {
            for (int band = 0; band < 3; ++band)
                pixel[band] = std::min(pixel[band], pixel[3]);
        }
    }
}

} // namespace

void setUpImageLibrary(const char* programName)
{
    std::call_once(startedOnce(), startImageLibrary, programName);
}

void ensureImageLibrary()
{
    setUpImageLibrary("mosaro");
}

VipsPtr vipsShare(VipsImage* image)
{
    g_object_ref(image);
    return VipsPtr(image);
}

VipsPtr vipsResizeTo(VipsImage* image, QSize size)
{
    const double across = static_cast<double>(size.width()) / image->Xsize;
    const double down = static_cast<double>(size.height()) / image->Ysize;
    return vipsMake(
        [&](VipsImage** out) { return vips_resize(image, out, across, "vscale", down, nullptr); });
}

VipsPtr vipsToSrgb(VipsImage* image)
{
    VipsPtr result = image->Type == VIPS_INTERPRETATION_sRGB && image->BandFmt == VIPS_FORMAT_UCHAR &&
                             !hasForeignProfile(image)
                         ? vipsShare(image)
                         : convertedToSrgb(image);
    if (result && result->BandFmt != VIPS_FORMAT_UCHAR)
        result = vipsMake([&](VipsImage** out) { return vips_cast_uchar(result.get(), out, nullptr); });
    if (result && result->Bands > 4)
        result = vipsMake(
            [&](VipsImage** out) { return vips_extract_band(result.get(), out, 0, "n", 4, nullptr); });
    if (result && result->Bands < 3)
        result = firstBands(result.get());
    return result;
}

// sRGB goes under several names that all begin so.
bool hasForeignProfile(VipsImage* image)
{
    const QString name = vipsProfileName(image);
    return !name.isEmpty() && !name.startsWith(QLatin1String("sRGB"));
}

QString vipsProfileName(VipsImage* image)
{
    const void* data = nullptr;
    std::size_t length = 0;
    if (vips_image_get_typeof(image, kProfileField) == 0 ||
        vips_image_get_blob(image, kProfileField, &data, &length) != 0) {
        vips_error_clear();
        return {};
    }
    return profileName(
        QByteArray::fromRawData(static_cast<const char*>(data), static_cast<qsizetype>(length)));
}

QString profileName(const QByteArray& stored)
{
    const cmsHPROFILE profile =
        cmsOpenProfileFromMem(stored.constData(), static_cast<cmsUInt32Number>(stored.size()));
    if (!profile)
        return {};
    std::array<wchar_t, 256> name{};
    const auto bytes = static_cast<cmsUInt32Number>(sizeof(wchar_t) * (name.size() - 1));
    cmsGetProfileInfo(profile, cmsInfoDescription, "en", "US", name.data(), bytes);
    cmsCloseProfile(profile);
    return QString::fromWCharArray(name.data()).trimmed();
}

QImage vipsToQImage(VipsImage* srgb, bool premultiplied)
{
    if (srgb->BandFmt != VIPS_FORMAT_UCHAR || srgb->Bands < 3 || srgb->Bands > 4)
        return {};
    const bool alpha = srgb->Bands == 4;
    const QImage::Format withAlpha =
        premultiplied ? QImage::Format_RGBA8888_Premultiplied : QImage::Format_RGBA8888;
    std::size_t size = 0;
    void* pixels = vips_image_write_to_memory(srgb, &size);
    if (!pixels) {
        vips_error_clear();
        return {};
    }
    QImage image(static_cast<uchar*>(pixels), srgb->Xsize, srgb->Ysize, qsizetype(srgb->Xsize) * srgb->Bands,
                 alpha ? withAlpha : QImage::Format_RGB888, g_free, pixels);
    // The filter's overshoot may lift a colour above its own alpha.
    if (alpha && premultiplied)
        clampToAlpha(image);
    return image;
}

VipsPtr vipsFromQImage(const QImage& image)
{
    ensureImageLibrary();
    const QImage rgba = image.convertToFormat(QImage::Format_RGBA8888);
    if (rgba.isNull())
        return nullptr;
    VipsPtr all(vips_image_new_from_memory_copy(rgba.constBits(),
                                                static_cast<std::size_t>(rgba.sizeInBytes()), rgba.width(),
                                                rgba.height(), 4, VIPS_FORMAT_UCHAR));
    if (!all)
        return nullptr;
    all->Type = VIPS_INTERPRETATION_sRGB;
    if (image.hasAlphaChannel())
        return all;
    return vipsMake([&](VipsImage** out) { return vips_extract_band(all.get(), out, 0, "n", 3, nullptr); });
}

QByteArray vipsTakeBuffer(void* buffer, std::size_t length)
{
    const QByteArray bytes(static_cast<const char*>(buffer), static_cast<qsizetype>(length));
    g_free(buffer);
    return bytes;
}

} // namespace mosaro::importing
