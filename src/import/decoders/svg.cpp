// Draws one SVG document after the other, as DecoderProtocol.h says.
//
// A program of its own, since drawing cannot be stopped and a small document can ask for years of it. A
// document has no address, so that nothing in it leads to another file or to the network, and nothing of it
// is kept when it has been drawn. One that took this process over through a fault of the libraries could do
// what the user can do, but not gain rights by starting programs, write to files, reach into the library's
// memory or outlive it by orderly means; it could falsify the pictures that are still to be drawn here, which
// is why a process is not used for ever. The number of threads is not limited, since the libraries need some.

#include "import/decoders/DecoderProtocol.h"

#include <csignal>
#include <cstdio>
#include <librsvg/rsvg.h>
#include <malloc.h>
#include <memory>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <vector>

namespace {

using namespace mosaro::importing;

constexpr double kPixelsPerInch = 96;
constexpr rlim_t kMostDescriptors = 64; // Fonts and their tables.
constexpr int kLargeBlock = 1 << 20;

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
template <class T>
using Ptr = std::unique_ptr<T, Unref>;

/// Libraries, fonts and the stacks of threads take addresses, but hardly any memory: half of the addresses
/// may be written to.
bool limitMemory()
{
    rlimit memory{};
    if (::getrlimit(RLIMIT_AS, &memory) != 0 || memory.rlim_cur == RLIM_INFINITY)
        return true;
    memory = {memory.rlim_cur / 2, memory.rlim_cur / 2};
    return ::setrlimit(RLIMIT_DATA, &memory) == 0;
}

/// The limits of addresses and of written files come from whoever starts this program.
bool giveUpRights()
{
    const rlimit descriptors{kMostDescriptors, kMostDescriptors};
    std::signal(SIGXFSZ, SIG_IGN); // A cache that a library would like to write is simply not written.
    return ::prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_DUMPABLE, 0) == 0 && ::setrlimit(RLIMIT_NOFILE, &descriptors) == 0 && limitMemory();
}

Ptr<RsvgHandle> readDocument(const std::vector<char>& bytes)
{
    const Ptr<GInputStream> stream(
        g_memory_input_stream_new_from_data(bytes.data(), static_cast<gssize>(bytes.size()), nullptr));
    return Ptr<RsvgHandle>(
        rsvg_handle_new_from_stream_sync(stream.get(), nullptr, RSVG_HANDLE_FLAGS_NONE, nullptr, nullptr));
}

bool draw(RsvgHandle* document, cairo_surface_t* surface)
{
    rsvg_handle_set_dpi(document, kPixelsPerInch);
    const Ptr<cairo_t> context(cairo_create(surface));
    const RsvgRectangle viewport{0, 0, static_cast<double>(cairo_image_surface_get_width(surface)),
                                 static_cast<double>(cairo_image_surface_get_height(surface))};
    return rsvg_handle_render_document(document, context.get(), &viewport, nullptr) != FALSE;
}

bool write(DecoderAnswer answer, const void* picture = "")
{
    return std::fwrite(&answer, sizeof answer, 1, stdout) == 1 &&
           std::fwrite(picture, 1, answer.pictureBytes, stdout) == answer.pictureBytes &&
           std::fflush(stdout) == 0;
}

bool answer(const DecoderRequest& request)
{
    std::vector<char> bytes(request.documentBytes);
    if (std::fread(bytes.data(), 1, bytes.size(), stdin) != bytes.size())
        return false;
    const Ptr<RsvgHandle> document = readDocument(bytes);
    if (!document)
        return write({DecoderOutcome::Unreadable, 0});
    const Ptr<cairo_surface_t> surface(cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, static_cast<int>(request.width), static_cast<int>(request.height)));
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS || !draw(document.get(), surface.get()))
        return write({DecoderOutcome::TooMuch, 0});
    cairo_surface_flush(surface.get());
    // Such rows have nothing between them.
    return write({DecoderOutcome::Drawn, request.width * request.height * 4},
                 cairo_image_surface_get_data(surface.get()));
}

} // namespace

int main()
{
    if (!giveUpRights())
        return 2;
    ::mallopt(M_MMAP_THRESHOLD, kLargeBlock); // What a large document needed goes back at once.
    DecoderRequest request{};
    while (std::fread(&request, sizeof request, 1, stdin) == 1) {
        if (!answer(request))
            return 1;
    }
    return 0;
}
