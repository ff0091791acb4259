#pragma once

#include "import/Analysis.h"

#include <QImage>

namespace mosaro::importing {

/// Finds the few dominant colours of a small picture: an n by n sampling in which every cell votes for a
/// small cloud of nearby colours, then a merge of those that lie close together. An own method of this
/// system.
class ZNColorEngine {
public:
    /// `detail` 0, 2 or any other value (1 in use): coarse, fine, middle.
    ZNColorEngine(const QImage& image, int detail);

    /// Falling share; among equal shares in the order of first appearance, so that results repeat.
    [[nodiscard]] const std::vector<DominantColor>& results() const { return m_colors; }

    /// The inner step: merged colours without the near-total backdrop, in no promised order.
    [[nodiscard]] static std::vector<DominantColor> colorsInImage(const QImage& image, int withDetail);

private:
    std::vector<DominantColor> m_colors;
};

} // namespace mosaro::importing
