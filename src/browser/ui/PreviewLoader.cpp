#include "browser/ui/PreviewLoader.h"

#include "base/Threads.h"

#include <QThread>
#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr int kCacheKilobytes = 96 * 1024;
/// Beyond this many remembered files all are forgotten and looked at again as they are shown.
constexpr int kRememberedFiles = 20000;

} // namespace

PreviewLoader::PreviewLoader(QObject* parent) : QObject(parent), m_pictures(kCacheKilobytes)
{
    // One core stays with the interface, or scrolling would wait for the decoding.
    m_pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount() - 1, 1, 4));
}

PreviewLoader::~PreviewLoader()
{
    m_pool.clear();
    m_pool.waitForDone();
}

PreviewLoader::Key PreviewLoader::keyOf(const PreviewRequest& request)
{
    return {request.path, request.version, request.box, qRound(request.ratio * 100)};
}

const PreviewLoader::Picture* PreviewLoader::picture(const PreviewRequest& request)
{
    return m_pictures.object(keyOf(request));
}

const PreviewLoader::Picture* PreviewLoader::anyPicture(const PreviewRequest& request)
{
    if (const Picture* exact = picture(request)) {
        return exact;
    }
    const auto found = m_lastKeys.constFind(request.path);
    return found == m_lastKeys.constEnd() ? nullptr : m_pictures.object(*found);
}

std::optional<FileState> PreviewLoader::fileState(const QString& path) const
{
    const auto found = m_fileStates.constFind(path);
    return found == m_fileStates.constEnd() ? std::nullopt : std::optional(found->state);
}

bool PreviewLoader::isFileStateFresh(const QString& path) const
{
    const auto found = m_fileStates.constFind(path);
    return found != m_fileStates.constEnd() && found->generation == m_generation;
}

void PreviewLoader::want(std::vector<PreviewRequest> requests)
{
    m_waiting = std::move(requests);
    std::reverse(m_waiting.begin(), m_waiting.end());
    startJobs();
}

void PreviewLoader::startJobs()
{
    while (!m_waiting.empty() && m_running.size() < m_pool.maxThreadCount()) {
        PreviewRequest next = std::move(m_waiting.back());
        m_waiting.pop_back();
        if (!m_running.contains(keyOf(next))) {
            run(std::move(next));
        }
    }
}

void PreviewLoader::run(PreviewRequest request)
{
    m_running.insert(keyOf(request));
    base::runOnWorker(m_pool, [this, request = std::move(request), generation = m_generation] {
        PreviewResult result = loadPreview(request);
        base::postToMain(*this, [this, request, result = std::move(result), generation] {
            accept(request, result, generation);
        });
    });
}

void PreviewLoader::accept(const PreviewRequest& request, const PreviewResult& result, int generation)
{
    const Key key = keyOf(request);
    m_running.remove(key);
    if (request.wantsImage) {
        const int cost = std::max(1, int(result.image.sizeInBytes() / 1024));
        m_pictures.insert(key, new Picture{result.image, result.originalSize, result.isDarkDrawing},
                          cost); // the cache owns it
        m_lastKeys.insert(request.path, key);
    }
    if (m_fileStates.size() > kRememberedFiles) {
        m_fileStates.clear();
        m_lastKeys.clear();
    }
    m_fileStates.insert(request.path, {result.file, generation});
    startJobs();
    Q_EMIT loaded();
}

} // namespace mosaro::browser
