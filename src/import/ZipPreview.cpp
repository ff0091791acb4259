#include "import/CarriedPreview.h"

#include "import/Analysis.h"
#include "import/EmbeddedPictures.h"

#include <QBuffer>
#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <vector>
#include <zip.h>

namespace mosaro::importing {

namespace {

constexpr qint64 kTailBytes = 65535 + 22; ///< In which the archive's closing record stands.
constexpr std::size_t kMaxCandidates = 8;

struct ZipDiscard {
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* entry) const { zip_fclose(entry); }
};

/// Whether every closing record says a modest number of entries: the library keeps them all in memory. The
/// large variant of the format, which has a record of its own for more, is for no document.
bool hasFewEntries(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.seek(std::max<qint64>(0, file.size() - kTailBytes)))
        return false;
    const QByteArray tail = file.read(kTailBytes);
    if (tail.contains("PK\6\7"))
        return false;
    for (qsizetype at = tail.indexOf("PK\5\6"); at >= 0; at = tail.indexOf("PK\5\6", at + 1)) {
        if (at + 12 > tail.size() ||
            qFromLittleEndian<quint16>(tail.constData() + at + 10) > analysisLimits().maxDocumentParts)
            return false;
    }
    return true;
}

struct Candidate {
    zip_uint64_t index = 0;
    qint64 bytes = 0;
};

std::vector<Candidate> candidatesIn(zip_t* archive)
{
    std::vector<Candidate> candidates;
    const zip_int64_t count = zip_get_num_entries(archive, 0);
    for (zip_int64_t index = 0; index < count; ++index) {
        zip_stat_t entry;
        if (zip_stat_index(archive, static_cast<zip_uint64_t>(index), 0, &entry) != 0 ||
            (entry.valid & ZIP_STAT_SIZE) == 0 || entry.size > zip_uint64_t(analysisLimits().maxCarriedBytes))
            continue;
        if (isPreviewName(QString::fromUtf8(entry.name)))
            candidates.push_back({entry.index, static_cast<qint64>(entry.size)});
    }
    // Only the largest in bytes are unpacked, so that no archive can ask for work without end.
    std::sort(candidates.begin(), candidates.end(),
              [](const Candidate& left, const Candidate& right) { return left.bytes > right.bytes; });
    candidates.resize(std::min(candidates.size(), kMaxCandidates));
    return candidates;
}

QByteArray unpacked(zip_t* archive, const Candidate& candidate)
{
    const std::unique_ptr<zip_file_t, ZipDiscard> entry(zip_fopen_index(archive, candidate.index, 0));
    QByteArray bytes(candidate.bytes, Qt::Uninitialized);
    const zip_int64_t read =
        entry ? zip_fread(entry.get(), bytes.data(), static_cast<zip_uint64_t>(bytes.size())) : -1;
    return read == bytes.size() ? bytes : QByteArray();
}

} // namespace

QByteArray previewInZip(const QString& path)
{
    if (!hasFewEntries(path))
        return {};
    const std::unique_ptr<zip_t, ZipDiscard> archive(
        zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, nullptr));
    if (!archive)
        return {};
    LargestPicture largest;
    for (const Candidate& candidate : candidatesIn(archive.get()))
        largest.offer(unpacked(archive.get(), candidate));
    return largest.bytes();
}

} // namespace mosaro::importing
