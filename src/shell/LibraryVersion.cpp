#include "shell/LibraryVersion.h"

#include "store/LibraryPackage.h"
#include "store/LibraryState.h"

namespace mosaro::shell {

namespace {
const QString kVersion = QStringLiteral("Version");
const QString kCopyItems = QStringLiteral("Copy items to library");
const QString kPresetIsUsed = QStringLiteral("PRESET_IS_USED");
/// The one old format of which only the previews of JPEG pictures are out of date.
const QString kJpegPreviewVersion = QStringLiteral("1.0.1");
} // namespace

bool imageCopyMode(const store::LibraryPackage& package, const QString& version)
{
    QVariantMap record = package.versionRecord();
    if (record.contains(kCopyItems)) {
        return record.value(kCopyItems).toBool();
    }
    record.insert(kCopyItems, true);
    record.insert(kVersion, version);
    (void)package.writeVersionRecord(record); // A read-only library still opens.
    return true;
}

LibraryWork updateVersionRecord(const store::LibraryPackage& package, const QString& version)
{
    QVariantMap record = package.versionRecord();
    const QString found = record.value(kVersion).toString();
    if (found.isEmpty()) {
        return LibraryWork::AllPreviews;
    }
    if (found == kJpegPreviewVersion) {
        return LibraryWork::JpegPreviews;
    }
    const QVariantMap before = record;
    record.insert(kVersion, version);
    if (!record.contains(kCopyItems)) {
        record.insert(kCopyItems, true);
    }
    if (record != before) {
        (void)package.writeVersionRecord(record); // The next open tries again.
    }
    return LibraryWork::None;
}

bool markExportPresetsUsed(store::LibraryState& state)
{
    QVariantList presets = state.exportPresets();
    bool changed = false;
    for (QVariant& entry : presets) {
        QVariantMap preset = entry.toMap();
        if (!preset.contains(kPresetIsUsed)) {
            preset.insert(kPresetIsUsed, true);
            entry = preset;
            changed = true;
        }
    }
    if (changed) {
        state.saveExportPresets(presets);
    }
    return changed;
}

} // namespace mosaro::shell
