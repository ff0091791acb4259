#pragma once

#include "platform/Ports.h"

#include <QHash>

namespace mosaro::platform {

/// The types for which a thumbnailer that can really be started is registered. Read once.
class DesktopThumbnailers : public ThumbnailerLookup {
public:
    /// From the XDG data directories, an earlier one going before a later one.
    DesktopThumbnailers();
    /// From these folders of ".thumbnailer" files.
    explicit DesktopThumbnailers(const QStringList& folders);

    [[nodiscard]] bool hasThumbnailer(const QStringList& mimeTypes) const override;
    [[nodiscard]] QString thumbnailerCommand(const QStringList& mimeTypes) const override;

private:
    void readFolders(const QStringList& folders);

    QHash<QString, QString> m_commands; ///< By MIME name.
};

} // namespace mosaro::platform
