#include "shell/AccessFolders.h"

#include "platform/Ports.h"
#include "store/AccessList.h"

#include <QFileInfo>

namespace mosaro::shell {

void AccessFolders::start(const store::LibraryPackage& package, const platform::Bookmarks& bookmarks)
{
    stop();
    const store::AccessList list = store::AccessList::read(package);
    for (auto entry = list.entries().cbegin(); entry != list.entries().cend(); ++entry) {
        if (entry.value().isEmpty() || !QFileInfo::exists(entry.key())) {
            continue;
        }
        const QString folder = bookmarks.resolve(entry.value());
        if (!folder.isEmpty()) {
            m_folders.append(folder);
        }
    }
}

} // namespace mosaro::shell
