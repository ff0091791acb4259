#pragma once

#include "base/Text.h"
#include "kit/Look.h"

#include <QApplication>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QtTest>

namespace mosaro::test {

/// A test of windows, which have their texts and their look.
class WindowTest : public QObject {
protected:
    WindowTest()
    {
        base::installTexts();
        kit::installLook(*qApp);
    }
};

/// Drags data over a view and lets go there, even where it refuses; whether it took them.
inline bool drop(QWidget& viewport, const QMimeData& data, const QPoint& position)
{
    QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&viewport, &enter);
    QDragMoveEvent move(position, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&viewport, &move);
    QDropEvent drop(position, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&viewport, &drop);
    return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
}

} // namespace mosaro::test
