#pragma once

#include <cstdint>

// What the library and a decoder that lives for many documents say to each other, over one socket that is the
// decoder's standard input and output. Both run on the same machine, so numbers go as they lie in memory. The
// decoder ends when there is no further request.

namespace mosaro::importing {

/// Followed by the bytes of the document.
struct DecoderRequest {
    std::uint32_t width; ///< Pixels of the picture that is asked for; at least 1.
    std::uint32_t height;
    std::uint32_t documentBytes;
};

enum class DecoderOutcome : std::uint32_t {
    Drawn,
    Unreadable, ///< The document cannot be read.
    TooMuch,    ///< It can, but asks for too much to be drawn.
};

/// Followed by the picture: rows of 32-bit words, premultiplied, alpha first.
struct DecoderAnswer {
    DecoderOutcome outcome;
    std::uint32_t pictureBytes; ///< Four for each pixel that was asked for; 0 unless drawn.
};

} // namespace mosaro::importing
