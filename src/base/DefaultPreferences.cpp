#include "base/DefaultPreferences.h"

#include "base/PreferenceKeys.h"
#include "base/PropertyList.h"

#include <QDir>
#include <QStandardPaths>

namespace mosaro::base {

namespace {

constexpr qint64 kControlOption = 0xc0000;
constexpr qint64 kControlShift = 0x60000;

QString picturesFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return folder.isEmpty() ? QDir::homePath() : folder;
}

/// A stored shortcut: the key code of a US keyboard and the modifier flags.
QByteArray shortcut(qint64 keyCode, qint64 modifierFlags)
{
    const QVariantMap map{{QStringLiteral("keyCode"), keyCode},
                          {QStringLiteral("modifierFlags"), modifierFlags}};
    const auto data = writePropertyList(map, PropertyListFormat::Binary);
    return data ? data.value() : QByteArray();
}

void addGlobal(std::vector<DefaultPreference>& list)
{
    list.insert(list.end(), {
                                {PREFS_GLOBAL_SEARCH_TYPE, 0},
                                {PREFS_GLOBAL_SEARCH_TARGET, 100},
                                {PREFS_GLOBAL_SHOW_GUIDE, true},
                                {PREFS_GLOBAL_SHOW_RELEASE_NOTE, false},
                                {PREFS_GLOBAL_MAIN_WINDOW_IS_FULLSCREEN, false},
                                {PREFS_GLOBAL_LAST_SELECTED_LIBRARY_ITEM, 0},
                                {PREFS_GLOBAL_COLLAPSED_INSPECTOR_IN_BROWSER, true},
                                {PREFS_GLOBAL_COLLAPASED_INSPECTOR_IN_VIEWER, false},
                                {PREFS_GLOBAL_LAST_SELECTED_DIR_FOR_LIBRARY, picturesFolder()},
                            });
}

void addGeneral(std::vector<DefaultPreference>& list)
{
    list.insert(list.end(), {
                                {PREFS_GENERAL_SHOW_ITEM_COUNTS, false},
                                {PREFS_GENERAL_SHOW_PROCESS_BADGE_ON_DOCK, true},
                                {PREFS_GENERAL_SHOW_RECENT_DAYS, 7},
                                {PREFS_GENERAL_SHOW_COLOR_CODE, true},
                                {PREFS_GENERAL_KEEP_MOSARO_MINI_ALWAYS_TOP, true},
                                {PREFS_GENERAL_DOUBLE_CLICK_ACITON, 0},
                                {PREFS_GENERAL_IMAGE_AS_SIZE_TO_FIT_IN_IMAGEVIEWER, 0},
                                {PREFS_GENERAL_SHOW_IMAGE_TYPE, true},
                                {PREFS_GENERAL_SHOW_REFERENCED_FILE_TYPE, false},
                                {PREFS_GENERAL_SHOW_TITLE_IN_BROWSER, true},
                                {PREFS_GENERAL_SOUND_EFFECTS, false},
                                {PREFS_GENERAL_SHOW_IMPORT_MEDIA_NOTI, true},
                                {PREFS_GENERAL_SHOW_MOVE_MEDIA_NOTI, true},
                                {PREFS_GENERAL_SHOW_REMOVE_MEDIA_NOTI, true},
                                {PREFS_GENERAL_SHOW_EXPORT_MEDIA_NOTI, true},
                            });
}

void addColorsAndLabels(std::vector<DefaultPreference>& list)
{
    list.insert(list.end(), {
                                {PREFS_SHOW_COLOR_VIEW_OPTIONS, true},
                                {PREFS_SHOW_BACKGROUND_COLORS, true},
                                {PREFS_SHOW_PRIMARY_COLORS, true},
                                {PREFS_SHOW_SECONDARY_COLORS, true},
                                {PREFS_SHOW_DETAIL_COLORS, true},
                                {PREFS_SHOW_LIKE_COLORS_ONLY, false},
                                {PREFS_INSPECTOR_SHOW_COMMON_INFO, true},
                                {PREFS_INSPECTOR_SHOW_IMAGE_INFO, true},
                                {PREFS_INSPECTOR_SHOW_OTHER_INFO, true},
                                {PREFS_EXPORT_ADD_TAGS_TO_ASSET, false},
                                {PREFS_LABEL_ADD_LABEL_TO_ASSET, false},
                                {PREFS_LABEL_RED_NAME, QStringLiteral("Red")},
                                {PREFS_LABEL_ORANGE_NAME, QStringLiteral("Orange")},
                                {PREFS_LABEL_YELLOW_NAME, QStringLiteral("Yellow")},
                                {PREFS_LABEL_GREEN_NAME, QStringLiteral("Green")},
                                {PREFS_LABEL_BLUE_NAME, QStringLiteral("Blue")},
                                {PREFS_LABEL_PURPLE_NAME, QStringLiteral("Purple")},
                                {PREFS_LABEL_GRAY_NAME, QStringLiteral("Gray")},
                            });
}

void addCapture(std::vector<DefaultPreference>& list)
{
    list.insert(list.end(), {
                                {PREFS_CAPTURE_SHOW_MENU_ITEM, true},
                                {PREFS_CAPTURE_INCLUDE_WINDOW_SHADOW, true},
                                {PREFS_CAPTURE_INCLUDE_CURSOR, true},
                                {PREFS_CAPTURE_DELAY_TIME, 5},
                                {PREFS_CAPTURE_SELECTION_SHORTCUT, shortcut(20, kControlOption)},
                                {PREFS_CAPTURE_WINDOW_SHORTCUT, shortcut(21, kControlOption)},
                                {PREFS_CAPTURE_TIMED_WINDOW_SHORTCUT, shortcut(21, kControlShift)},
                                {PREFS_CAPTURE_FULLSCREEN_SHORTCUT, shortcut(23, kControlOption)},
                                {PREFS_CAPTURE_TIMED_FULLSCREEN_SHORTCUT, shortcut(23, kControlShift)},
                                {PREFS_CAPTURE_WEBSITE_SHORTCUT, shortcut(22, kControlOption)},
                                {PREFS_CAPTURE_SCREENRECORD_SHORTCUT, shortcut(26, kControlOption)},
                            });
}

} // namespace

std::vector<DefaultPreference> defaultPreferences()
{
    std::vector<DefaultPreference> list;
    addGlobal(list);
    addGeneral(list);
    addColorsAndLabels(list);
    addCapture(list);
    return list;
}

} // namespace mosaro::base
