#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <glib-object.h>
#include <memory>
#include <vips/vips.h>

namespace mosaro::importing {

// A thin, exception-free skin over the image library's C interface.

struct GObjectUnref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using VipsPtr = std::unique_ptr<VipsImage, GObjectUnref>;

/// Sets the library up once; every function here and every user of the library calls it first.
void ensureImageLibrary();

/// Runs `operation(VipsImage** out)`, which answers 0 on success as the library's operations do. Null on
/// failure, with the library's own error log emptied.
template <class Operation>
[[nodiscard]] VipsPtr vipsMake(Operation&& operation)
{
    VipsImage* out = nullptr;
    if (operation(&out) == 0)
        return VipsPtr(out);
    vips_error_clear();
    return nullptr;
}

/// Another reference to the same image.
[[nodiscard]] VipsPtr vipsShare(VipsImage* image);

/// The size asked for, stretched as needed, by a wide filter. Lazy.
[[nodiscard]] VipsPtr vipsResizeTo(VipsImage* image, QSize size);

/// 8-bit sRGB with three bands, or four when there is transparency, whatever colours `image` has. The
/// embedded profile is followed when it is usable. Meant for small pictures in memory.
[[nodiscard]] VipsPtr vipsToSrgb(VipsImage* image);

/// Description of the embedded colour profile, or empty.
[[nodiscard]] QString vipsProfileName(VipsImage* image);
[[nodiscard]] QString profileName(const QByteArray& profile);

/// Whether an embedded profile says other colours than sRGB.
[[nodiscard]] bool hasForeignProfile(VipsImage* image);

/// Pixels as a QImage; `premultiplied` says how the four-band pixels are to be read. Null on failure.
[[nodiscard]] QImage vipsToQImage(VipsImage* srgb, bool premultiplied);

/// An image over a copy of the pixels: RGB for opaque pictures, else RGBA that is not premultiplied.
[[nodiscard]] VipsPtr vipsFromQImage(const QImage& image);

/// Takes over a buffer that the library made.
[[nodiscard]] QByteArray vipsTakeBuffer(void* buffer, std::size_t length);

} // namespace mosaro::importing
