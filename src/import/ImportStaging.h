#pragma once

#include "import/ImportRun.h"

#include <QDateTime>
#include <memory>
#include <utility>

namespace mosaro::importing {

/// An item folder that is being put together in the staging directory. Removed with the object unless it was
/// moved to its place.
class StagedFolder {
public:
    StagedFolder() = default;
    explicit StagedFolder(QString path) : m_path(std::move(path)) {}
    StagedFolder(const StagedFolder&) = delete;
    StagedFolder& operator=(const StagedFolder&) = delete;
    StagedFolder(StagedFolder&& other) noexcept : m_path(std::exchange(other.m_path, {})) {}
    StagedFolder& operator=(StagedFolder&& other) noexcept;
    ~StagedFolder();

    [[nodiscard]] const QString& path() const { return m_path; }
    /// Renames it to a free place; the directories above are made.
    [[nodiscard]] base::Result<void> moveTo(const QString& destination);

private:
    QString m_path;
};

/// Everything that a worker found out about one file, ready for the commit.
struct StagedItem {
    ImportItem item;
    bool isGone = false; ///< No such file any more, or a record without path or kind: passed over.
    QString sourcePath;  ///< Absolute.
    QString mediaID;
    base::Result<void> outcome;
    AnalysisResult analysis; ///< Without the bytes of the side file, which are on the disk by then.
    platform::FileIndexEntry index;
    qint64 fileSize = 0;
    QDateTime created;
    QDateTime modified;
    QString storedName; ///< Of the copy in "Originals"; empty for a reference.
    StagedFolder folder;
};

/// What staging needs to know; values and references to what is safe on every thread.
struct StagingSettings {
    const MediaClassification& classification;
    const platform::FileIndex& fileIndex;
    std::function<AnalysisResult(const AnalysisRequest&)> analyse;
    QString stagingDirPath;
    bool copyMode = true;
};

/// Analyses one file and puts its whole item folder together. For a worker.
[[nodiscard]] std::shared_ptr<StagedItem> stageItem(const ImportItem& item, const StagingSettings& settings);

/// Before a run: takes away what an interrupted run has left, and makes the directory. For a worker.
void prepareStaging(const QString& stagingDirPath);

} // namespace mosaro::importing
