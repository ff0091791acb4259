#pragma once

#include "store/LibraryPackage.h"
#include "store/StoreContext.h"

#include <QStringList>

namespace mosaro::store {

/// What a check of records against files found. Paths are absolute.
struct VerificationReport {
    QStringList foldersWithoutRecord; ///< Item folders and staged remains that no record names.
    QStringList missingPreviews;      ///< mediaIDs of records whose preview is gone.
    QStringList missingOriginals;     ///< mediaIDs of records whose stored or referenced file is gone.
    QString storeDamage;              ///< What is wrong with the store file itself; empty for nothing.
    bool isComplete = false;          ///< The records could be read; otherwise nothing is listed.
    [[nodiscard]] bool isClean() const;
};

[[nodiscard]] VerificationReport verifyLibrary(StoreContext& context, const LibraryPackage& package);

/// Removes the folders without record, and date folders that this empties; nothing else. Gives those removed.
QStringList repairLibrary(const VerificationReport& report, const LibraryPackage& package);

/// Removes a day's folder, its month's and its year's, each only while it is empty.
void pruneDateFolders(const QString& dayFolder);

} // namespace mosaro::store
