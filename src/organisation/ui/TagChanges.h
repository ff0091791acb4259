#pragma once

#include "base/ColorText.h"
#include "organisation/RunProgress.h"
#include "organisation/SlicedRun.h"
#include "organisation/TagCommands.h"

#include <QColor>

namespace mosaro::organisation {

class MRLibraryTableView;
class MRLibraryTagsSource;
struct SidebarEnvironment;

/// The commands of the list of tags that change tags: new ones, titles, colours, and deletion with its
/// question and its progress. All act on the selected rows and do nothing without a library open.
class TagChanges : public QObject {
public:
    TagChanges(MRLibraryTagsSource& source, const SidebarEnvironment& environment, MRLibraryTableView& list,
               TagList& tags);

    /// A deletion goes on.
    [[nodiscard]] bool isRunning() const { return m_deletion.isRunning(); }

    /// The new tag is selected, and its title open for editing.
    void addTag();
    /// A title that is taken is refused with an alert, and its editor opens again.
    void rename(const QString& tagID, const QString& title);
    /// One of the choices of TagColors.h.
    void tagColor(int choice);
    /// Asks first.
    void deleteTag();

private:
    void refuseTitle(const QString& tagID, const QString& title);
    void customColorDidChanged(const QColor& color);
    void updateTagColor(const std::optional<base::ColorValue>& color);
    void deleteTags(const std::vector<TagRecord>& tags);
    void readAnew();
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] TagCommands commands() const;

    MRLibraryTagsSource& m_source;
    const SidebarEnvironment& m_environment;
    MRLibraryTableView& m_list;
    TagList& m_tags;
    RunProgress m_progress;
    SlicedRun m_deletion;
};

} // namespace mosaro::organisation
