#pragma once

#include <QByteArray>
#include <QString>
#include <random>

namespace mosaro::bench {

/// One item's values, as they lie in the store. Dates are milliseconds since 1970.
struct Item {
    QString id, title, fileName, notes;
    qint64 created, modified, imported;
    qint64 fileSize;
    double width, height;
    int kind, documentType, rating, label, hasAlpha;
};

/// A stream of plausible contents; the same for the same seed.
class LibraryContents {
public:
    explicit LibraryContents(unsigned seed) : m_random(seed) {}

    [[nodiscard]] int below(int limit);
    [[nodiscard]] size_t index(size_t size) { return static_cast<size_t>(below(static_cast<int>(size))); }
    [[nodiscard]] QString identifier();
    [[nodiscard]] QString colorID();
    [[nodiscard]] qint64 date();
    [[nodiscard]] QString title(int number);
    [[nodiscard]] static QString tagTitle(int number);
    [[nodiscard]] Item item(int number);
    /// A PNG of one size for all.
    [[nodiscard]] static const QByteArray& previewBytes(bool preview);

private:
    std::mt19937_64 m_random;
};

} // namespace mosaro::bench
