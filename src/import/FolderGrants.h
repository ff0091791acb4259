#pragma once

#include "platform/Ports.h"
#include "store/AccessList.h"

#include <functional>

namespace mosaro::importing {

/// The folders that a run may refer to: the library's access list, and what the user grants on the way.
class FolderGrants {
public:
    using AskForFolder = std::function<QString(const QString& folder)>;

    FolderGrants(store::AccessList list, const platform::Bookmarks& bookmarks, AskForFolder ask)
        : m_list(std::move(list)), m_bookmarks(bookmarks), m_ask(std::move(ask))
    {
    }

    /// Whether a file may be referred to; asks the user when no entry covers its folder. A refusal is not
    /// remembered.
    [[nodiscard]] bool admits(const QString& filePath);
    [[nodiscard]] const store::AccessList& list() const { return m_list; }

private:
    store::AccessList m_list;
    const platform::Bookmarks& m_bookmarks;
    AskForFolder m_ask;
};

} // namespace mosaro::importing
