#pragma once

#include "import/Analysis.h"
#include "import/MediaClassification.h"
#include "support/FakePlatform.h"

#include <memory>

namespace mosaro::test {

/// The fake side of the desktop that a part which imports needs; PNG files are known.
struct FakeDesktop {
    FakeTypes types;
    FakeThumbnailers thumbnailers;
    importing::MediaClassification classification{types, thumbnailers};
    platform::Platform platform;

    FakeDesktop()
    {
        types.mimeTypes.insert(QStringLiteral("png"), QStringLiteral("image/png"));
        platform.aliases = std::make_unique<FakeAliases>();
        platform.fileIndex = std::make_unique<FakeFileIndex>();
        platform.bookmarks = std::make_unique<FakeBookmarks>();
    }
};

/// An analysis for which files named "bad…" fail and all others are pictures, of the kind that was asked for.
inline importing::AnalysisResult pictureUnlessBad(const importing::AnalysisRequest& request)
{
    importing::AnalysisResult result;
    result.type = request.type;
    const bool isKindOpen = request.kind == importing::MediaKind::Unset;
    result.kind = isKindOpen ? importing::MediaKind::Other : request.kind;
    if (QFileInfo(request.path).fileName().startsWith(QLatin1String("bad"))) {
        result.outcome = base::Failure{QStringLiteral("spoilt")};
    } else {
        result.preview = "preview";
    }
    return result;
}

} // namespace mosaro::test
