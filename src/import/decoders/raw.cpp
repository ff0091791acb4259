// Decodes the camera raw file `path` and writes to standard output a line of text
//   WIDTH HEIGHT DEPTH FLIP jpeg|rgb PICTURE-WIDTH PICTURE-HEIGHT
// with the measures of the raw picture and how it is to be turned, a line with the software's name, and then
// a picture: the JPEG preview that the camera has put in, if it is at least `width` or `height` pixels large
// in both directions, else the developed picture as rows of sRGB bytes, not turned.
//
// A program of its own, since such files hold formats of many makers, and damaged ones can lead their decoder
// to crash, to wait or to ask for any amount of memory.

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <libraw/libraw.h>
#include <memory>
#include <string>

namespace {

constexpr unsigned kMostRawMegabytes = 1024;
constexpr int kForgivenErrors = 3; ///< Some cameras write a little less than they say.

struct FreePicture {
    void operator()(libraw_processed_image_t* picture) const { LibRaw::dcraw_clear_mem(picture); }
};
using Picture = std::unique_ptr<libraw_processed_image_t, FreePicture>;

int numberOf(const char* text)
{
    int number = 0;
    std::from_chars(text, text + std::strlen(text), number);
    return number;
}

/// On one line, whatever the file holds.
std::string softwareOf(const LibRaw& raw)
{
    std::string text(raw.imgdata.idata.software,
                     strnlen(raw.imgdata.idata.software, sizeof raw.imgdata.idata.software));
    for (char& letter : text) {
        if (static_cast<unsigned char>(letter) < ' ')
            letter = ' ';
    }
    return text;
}

/// One file, opened. Developing changes what it says of its measures.
class RawFile {
public:
    explicit RawFile(LibRaw& raw) : m_raw(raw), m_sizes(raw.imgdata.sizes) {}

    bool writePreview(int width, int height)
    {
        const libraw_thumbnail_t& preview = m_raw.imgdata.thumbnail;
        if (m_raw.unpack_thumb() != LIBRAW_SUCCESS || preview.tformat != LIBRAW_THUMBNAIL_JPEG)
            return false;
        if (preview.twidth < width || preview.theight < height)
            return false;
        return write("jpeg", preview.twidth, preview.theight, preview.thumb, preview.tlength);
    }

    bool writeDeveloped(int width, int height)
    {
        libraw_output_params_t& how = m_raw.imgdata.params;
        how.output_color = 1; // sRGB
        how.output_bps = 8;
        how.use_camera_wb = 1;
        how.user_flip = 0;
        // Four sensor cells make one pixel then, which is quick and enough for looking.
        how.half_size = m_sizes.width >= 2 * width && m_sizes.height >= 2 * height;
        if (m_raw.unpack() != LIBRAW_SUCCESS || !isComplete() || m_raw.dcraw_process() != LIBRAW_SUCCESS)
            return false;
        const Picture picture(m_raw.dcraw_make_mem_image());
        if (!picture || picture->type != LIBRAW_IMAGE_BITMAP || picture->bits != 8 || picture->colors != 3)
            return false;
        return write("rgb", picture->width, picture->height, picture->data, picture->data_size);
    }

private:
    /// The library makes noise of what is not there.
    bool isComplete()
    {
        const libraw_internal_data_t& inside = *m_raw.get_internal_data_pointer();
        const std::int64_t length = inside.unpacker_data.data_size;
        const std::int64_t there = inside.internal_data.input->size() - inside.unpacker_data.data_offset;
        return m_raw.error_count() <= kForgivenErrors && (length <= 0 || there >= length - length / 100);
    }

    bool write(const char* form, int width, int height, const void* bytes, std::size_t length)
    {
        const unsigned stored = m_raw.imgdata.color.raw_bps;
        std::printf("%d %d %u %d %s %d %d\n%s\n", m_sizes.width, m_sizes.height, stored > 0 ? stored : 16U,
                    m_sizes.flip, form, width, height, softwareOf(m_raw).c_str());
        return std::fwrite(bytes, 1, length, stdout) == length && std::fflush(stdout) == 0;
    }

    LibRaw& m_raw;
    libraw_image_sizes_t m_sizes;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    const int width = numberOf(argv[2]);
    const int height = numberOf(argv[3]);
    const auto raw = std::make_unique<LibRaw>();
    raw->imgdata.params.max_raw_memory_mb = kMostRawMegabytes;
    if (raw->open_file(argv[1]) != LIBRAW_SUCCESS)
        return 1;
    RawFile file(*raw);
    return file.writePreview(width, height) || file.writeDeveloped(width, height) ? 0 : 1;
}
