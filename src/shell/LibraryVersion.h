#pragma once

#include <QString>

namespace mosaro::store {
class LibraryPackage;
class LibraryState;
} // namespace mosaro::store

namespace mosaro::shell {

/// Work on the items that a library's version record asks for.
enum class LibraryWork { None, JpegPreviews, AllPreviews };

/// The library's import mode: true copies new items into it. A record that doesn't say gets true, with the
/// version.
[[nodiscard]] bool imageCopyMode(const store::LibraryPackage& package, const QString& version);

/// Brings the version record up to date. A library whose items need work first keeps its record as it is, so
/// that whoever can do the work still finds it.
LibraryWork updateVersionRecord(const store::LibraryPackage& package, const QString& version);

/// Presets written before they could be switched off count as in use. True when one was changed.
bool markExportPresetsUsed(store::LibraryState& state);

} // namespace mosaro::shell
