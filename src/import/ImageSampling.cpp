// Exact area sampling of a picture into a small square grid.
#include "import/ImageOperations.h"

#include <array>
#include <vector>

namespace mosaro::importing {

namespace {

// Four channel sums for each cell of one row of the grid.
using Sums = std::vector<std::array<quint64, 4>>;

struct Share {
    int cell;
    quint64 weight;
};

/// For every pixel along an edge of `length` the cells it covers, in units of 1/side of a pixel.
std::vector<std::vector<Share>> sharesAlong(int length, int side)
{
    std::vector<std::vector<Share>> shares(static_cast<std::size_t>(length));
    for (int pixel = 0; pixel < length; ++pixel) {
        const qint64 begin = qint64(pixel) * side;
        const qint64 end = begin + side;
        for (qint64 cell = begin / length; cell * length < end; ++cell) {
            const qint64 covered = std::min(end, (cell + 1) * length) - std::max(begin, cell * length);
            shares[static_cast<std::size_t>(pixel)].push_back(
                {static_cast<int>(cell), static_cast<quint64>(covered)});
        }
    }
    return shares;
}

} // namespace

QImage sampledToGrid(const QImage& image, int side)
{
    if (image.isNull() || side < 1)
        return {};
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const auto columns = sharesAlong(pixels.width(), side);
    const auto rows = sharesAlong(pixels.height(), side);
    const auto cells = static_cast<std::size_t>(side);
    std::vector<Sums> grid(cells, Sums(cells));
    for (int y = 0; y < pixels.height(); ++y) {
        Sums row(cells);
        const uchar* pixel = pixels.constScanLine(y);
        for (const auto& shares : columns) {
            for (const Share& share : shares) {
                auto& sum = row[static_cast<std::size_t>(share.cell)];
                for (std::size_t channel = 0; channel < 4; ++channel)
                    sum[channel] += share.weight * pixel[channel];
            }
            pixel += 4;
        }
        for (const Share& share : rows[static_cast<std::size_t>(y)]) {
            Sums& target = grid[static_cast<std::size_t>(share.cell)];
            for (std::size_t cell = 0; cell < cells; ++cell) {
                for (std::size_t channel = 0; channel < 4; ++channel)
                    target[cell][channel] += share.weight * row[cell][channel];
            }
        }
    }

    const quint64 area = quint64(pixels.width()) * quint64(pixels.height());
    QImage result(side, side, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < side; ++y) {
        uchar* pixel = result.scanLine(y);
        for (const auto& sum : grid[static_cast<std::size_t>(y)]) {
            for (const quint64 channel : sum)
                *pixel++ = static_cast<uchar>((channel + area / 2) / area);
        }
    }
    return result;
}

} // namespace mosaro::importing
