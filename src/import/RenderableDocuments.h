#pragma once

#include "platform/Ports.h"

namespace mosaro::importing {

/// What this machine can draw of the documents of design programs: those that carry a preview of themselves,
/// which is read without any program, and those that a thumbnailer of the desktop draws.
class RenderableDocuments : public platform::ThumbnailerLookup {
public:
    explicit RenderableDocuments(const platform::ThumbnailerLookup& desktop) : m_desktop(desktop) {}

    [[nodiscard]] bool hasThumbnailer(const QStringList& mimeTypes) const override;
    [[nodiscard]] QString thumbnailerCommand(const QStringList& mimeTypes) const override
    {
        return m_desktop.thumbnailerCommand(mimeTypes);
    }

private:
    const platform::ThumbnailerLookup& m_desktop;
};

} // namespace mosaro::importing
