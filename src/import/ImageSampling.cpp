// Exact area sampling of a picture into a small square grid.
#include "import/ImageOperations.h"

#include <array>
#include <vector>

namespace mosaro::importing {

namespace {

/// How much of a pixel along one edge lies in a cell, in units of 1/side of a pixel.
struct Share {
    int pixel;
    int cell;
    quint32 weight;
};

std::vector<Share> sharesAlong(int length, int side)
{
    std::vector<Share> shares;
    for (int pixel = 0; pixel < length; ++pixel) {
        const qint64 begin = qint64(pixel) * side;
        const qint64 end = begin + side;
        for (qint64 cell = begin / length; cell * length < end; ++cell) {
            const qint64 covered = std::min(end, (cell + 1) * length) - std::max(begin, cell * length);
            shares.push_back({pixel, static_cast<int>(cell), static_cast<quint32>(covered)});
        }
    }
    return shares;
}

/// Four channel sums for each cell across. 32 bits hold the sum of a row up to 160,000 pixels long for 100
/// cells.
using RowSums = std::vector<std::array<quint32, 4>>;

void sumRow(const uchar* line, const std::vector<Share>& columns, RowSums& sums)
{
    for (std::size_t index = 0; index < columns.size();) {
        // Summed in registers from one cell to the next: this is the inner loop over all pixels.
        const int cell = columns[index].cell;
        quint32 red = 0;
        quint32 green = 0;
        quint32 blue = 0;
        quint32 alpha = 0;
        for (; index < columns.size() && columns[index].cell == cell; ++index) {
            const uchar* pixel = line + qsizetype(columns[index].pixel) * 4;
            const quint32 weight = columns[index].weight;
            red += weight * pixel[0];
            green += weight * pixel[1];
            blue += weight * pixel[2];
            alpha += weight * pixel[3];
        }
        sums[static_cast<std::size_t>(cell)] = {red, green, blue, alpha};
    }
}

} // namespace

QImage sampledToGrid(const QImage& image, int side)
{
    if (image.isNull() || side < 1)
        return {};
    const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const auto cells = static_cast<std::size_t>(side);
    const std::vector<Share> columns = sharesAlong(pixels.width(), side);
    std::vector<std::vector<std::array<quint64, 4>>> grid(cells, std::vector<std::array<quint64, 4>>(cells));
    RowSums row(cells);
    int summed = -1;
    for (const Share& share : sharesAlong(pixels.height(), side)) {
        if (share.pixel != summed)
            sumRow(pixels.constScanLine(share.pixel), columns, row);
        summed = share.pixel;
        auto& target = grid[static_cast<std::size_t>(share.cell)];
        for (std::size_t cell = 0; cell < cells; ++cell) {
            for (std::size_t channel = 0; channel < 4; ++channel)
                target[cell][channel] += quint64(share.weight) * row[cell][channel];
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
