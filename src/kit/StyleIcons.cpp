// The icons that the toolkit's own windows ask for.
#include "kit/Look.h"
#include "kit/MosaroStyle.h"

namespace mosaro::kit {

namespace {

const char* iconNameFor(QStyle::StandardPixmap which)
{
    switch (which) {
    case QStyle::SP_ArrowBack:
    case QStyle::SP_FileDialogBack:
        return "previous";
    case QStyle::SP_ArrowForward:
        return "next";
    case QStyle::SP_FileDialogToParent:
        return "up";
    case QStyle::SP_FileDialogNewFolder:
        return "folder_new";
    case QStyle::SP_FileDialogListView:
        return "view_list";
    case QStyle::SP_FileDialogDetailedView:
        return "view_details";
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirOpenIcon:
    case QStyle::SP_DirClosedIcon:
        return "side_folder_s";
    case QStyle::SP_DirHomeIcon:
        return "home";
    case QStyle::SP_ComputerIcon:
    case QStyle::SP_DriveHDIcon:
        return "drive";
    case QStyle::SP_FileIcon:
        return "file";
    case QStyle::SP_LineEditClearButton:
    case QStyle::SP_TitleBarCloseButton:
        return "close";
    default:
        return nullptr;
    }
}

} // namespace

QIcon MosaroStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const
{
    const char* name = iconNameFor(which);
    return name != nullptr ? icon(QString::fromLatin1(name))
                           : QProxyStyle::standardIcon(which, option, widget);
}

} // namespace mosaro::kit
