#pragma once

#include "browser/ui/PreviewDecode.h"

#include <QCache>
#include <QHash>
#include <QObject>
#include <QSet>
#include <QThreadPool>
#include <optional>
#include <vector>

namespace mosaro::browser {

/// Pictures for the grid, read by workers and kept within a bound of memory. What is wanted is told anew with
/// each paint, most important first; what is no longer wanted and not begun is never read.
class PreviewLoader : public QObject {
    Q_OBJECT

public:
    explicit PreviewLoader(QObject* parent = nullptr);
    ~PreviewLoader() override;

    struct Picture {
        QImage image; ///< Null: could not be read.
        QSize originalSize;
        bool isDarkDrawing = false;
    };

    /// In just this size; null when it is not there yet.
    [[nodiscard]] const Picture* picture(const PreviewRequest& request);
    /// The size that was read last, to show in the meantime; null when there is none.
    [[nodiscard]] const Picture* anyPicture(const PreviewRequest& request);
    /// What was last seen of the item's file; nothing before the first look.
    [[nodiscard]] std::optional<FileState> fileState(const QString& path) const;
    [[nodiscard]] bool isFileStateFresh(const QString& path) const;

    /// Replaces what is waiting.
    void want(std::vector<PreviewRequest> requests);
    /// All files are to be looked at again; what was seen is shown until then.
    void expireFileStates() { ++m_generation; }
    [[nodiscard]] bool isIdle() const { return m_waiting.empty() && m_running.isEmpty(); }

Q_SIGNALS:
    void loaded();

private:
    struct Key {
        QString path;
        int version = 1;
        QSize box;
        int ratio = 100; ///< In hundredths.
        bool operator==(const Key&) const = default;
        friend size_t qHash(const Key& key, size_t seed = 0)
        {
            return qHashMulti(seed, key.path, key.version, key.box.width(), key.box.height(), key.ratio);
        }
    };
    struct SeenState {
        FileState state;
        int generation = 0;
    };

    [[nodiscard]] static Key keyOf(const PreviewRequest& request);
    void startJobs();
    void run(PreviewRequest request);
    void accept(const PreviewRequest& request, const PreviewResult& result, int generation);

    QThreadPool m_pool;
    std::vector<PreviewRequest> m_waiting; ///< The next one last.
    QSet<Key> m_running;
    QCache<Key, Picture> m_pictures;
    QHash<QString, Key> m_lastKeys;
    QHash<QString, SeenState> m_fileStates;
    int m_generation = 0;
};

} // namespace mosaro::browser
