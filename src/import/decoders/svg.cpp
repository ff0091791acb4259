// Draws the SVG document on standard input, `width` by `height` pixels large, and writes the pixels to
// standard output: rows of 32-bit words, premultiplied, alpha first. Writes nothing when the document cannot
// be read, and a single byte when it can but asks for too much to be drawn.
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

Ptr<RsvgHandle> readDocument(const std::vector<char>& bytes)
{
    const Ptr<GInputStream> stream(
        g_memory_input_stream_new_from_data(bytes.data(), static_cast<gssize>(bytes.size()), nullptr));
    return Ptr<RsvgHandle>(
        rsvg_handle_new_from_stream_sync(stream.get(), nullptr, RSVG_HANDLE_FLAGS_NONE, nullptr, nullptr));
}

bool draw(RsvgHandle* document, cairo_surface_t* surface, int width, int height)
{
    rsvg_handle_set_dpi(document, kPixelsPerInch);
    const Ptr<cairo_t> context(cairo_create(surface));
    const RsvgRectangle viewport{0, 0, static_cast<double>(width), static_cast<double>(height)};
    return rsvg_handle_render_document(document, context.get(), &viewport, nullptr) != FALSE;
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
    const std::vector<char> bytes = readAll(stdin);
    const Ptr<RsvgHandle> document = readDocument(bytes);
    if (!document)
        return 0;
    if (!draw(document.get(), surface.get(), width, height))
        return std::putchar('!') == '!' ? 0 : 1;
    return write(surface.get(), width, height) ? 0 : 1;
}
