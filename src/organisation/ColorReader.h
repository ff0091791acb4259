#pragma once

#include "organisation/ColorGroups.h"
#include "store/AsynchronousFetch.h"

#include <functional>
#include <memory>
#include <optional>

namespace mosaro::organisation {

/// Reads the colours of a library while the window stays live, however many there are.
class ColorReader {
public:
    using Completion = std::function<void(ColorGroups groups)>;

    /// The completion is called on the main thread, while the library is open. A failed reading finds
    /// nothing.
    ColorReader(store::ZNDBManager& library, Completion completion)
        : m_library(library), m_completion(std::move(completion))
    {
    }

    /// With a library open. A reading that goes on is done with and followed by this one, without completion.
    void start(const ColorViewOptions& options);
    [[nodiscard]] bool isRunning() const { return m_isRunning; }

private:
    void read(const ColorViewOptions& options);
    void readingEnded(ColorGroups groups);

    store::ZNDBManager& m_library;
    Completion m_completion;
    bool m_isRunning = false;
    std::optional<ColorViewOptions> m_next;
    std::unique_ptr<store::AsynchronousFetch> m_fetch; ///< Made for the first reading.
};

} // namespace mosaro::organisation
