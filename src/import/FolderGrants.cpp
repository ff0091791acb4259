#include "import/FolderGrants.h"

#include <QFileInfo>

namespace mosaro::importing {

bool FolderGrants::admits(const QString& filePath)
{
    const QString folder = QFileInfo(filePath).path();
    if (!m_list.grantFor(folder).isEmpty()) {
        return true;
    }
    const QString chosen = m_ask ? m_ask(folder) : QString();
    if (chosen.isEmpty()) {
        return false;
    }
    if (!m_list.entries().contains(chosen)) {
        m_list.enter(chosen, m_bookmarks.bookmarkData(chosen));
    }
    return true;
}

} // namespace mosaro::importing
