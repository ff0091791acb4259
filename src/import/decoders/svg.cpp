// Draws the SVG document on standard input, `width` by `height` pixels large, and writes the pixels to
// standard output: rows of 32-bit words, premultiplied, alpha first. Writes nothing when the document cannot
// be drawn.
//
// A program of its own, since drawing cannot be stopped and a small document can ask for years of it. The
// document has no address, so that nothing in it leads to another file or to the network.

#include <charconv>
#include <cstdio>
#include <cstring>
#include <librsvg/rsvg.h>
#include <memory>
#include <vector>

namespace {

constexpr double kPixelsPerInch = 96;

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
template <class T>
using Ptr = std::unique_ptr<T, Unref>;

std::vector<char> readAll(std::FILE* file)
{
    std::vector<char> bytes;
    std::size_t size = 0;
    do {
        size = bytes.size();
        bytes.resize(size + (std::size_t(1) << 20));
        bytes.resize(size + std::fread(bytes.data() + size, 1, bytes.size() - size, file));
    } while (bytes.size() > size);
    return bytes;
}

int numberOf(const char* text)
{
    int number = 0;
    std::from_chars(text, text + std::strlen(text), number);
    return number;
}

bool draw(const std::vector<char>& document, cairo_surface_t* surface, int width, int height)
{
    const Ptr<GInputStream> stream(
        g_memory_input_stream_new_from_data(document.data(), static_cast<gssize>(document.size()), nullptr));
    const Ptr<RsvgHandle> handle(
        rsvg_handle_new_from_stream_sync(stream.get(), nullptr, RSVG_HANDLE_FLAGS_NONE, nullptr, nullptr));
    if (!handle)
        return false;
    rsvg_handle_set_dpi(handle.get(), kPixelsPerInch);
    const Ptr<cairo_t> context(cairo_create(surface));
    const RsvgRectangle viewport{0, 0, static_cast<double>(width), static_cast<double>(height)};
    return rsvg_handle_render_document(handle.get(), context.get(), &viewport, nullptr) != FALSE;
}

bool write(cairo_surface_t* surface, int width, int height)
{
    cairo_surface_flush(surface);
    const unsigned char* row = cairo_image_surface_get_data(surface);
    const auto bytes = static_cast<std::size_t>(width) * 4;
    for (int y = 0; row && y < height; ++y, row += cairo_image_surface_get_stride(surface)) {
        if (std::fwrite(row, 1, bytes, stdout) != bytes)
            return false;
    }
    return std::fflush(stdout) == 0;
}

} // namespace

int main(int argc, char** argv)
{
    const int width = argc == 3 ? numberOf(argv[1]) : 0;
    const int height = argc == 3 ? numberOf(argv[2]) : 0;
    const Ptr<cairo_surface_t> surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height));
    if (width < 1 || height < 1 || cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        return 2;
    if (!draw(readAll(stdin), surface.get(), width, height))
        return 0;
    return write(surface.get(), width, height) ? 0 : 1;
}
