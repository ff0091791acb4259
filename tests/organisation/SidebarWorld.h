#pragma once

#include "base/ZNUtilities.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/MRLibraryView.h"
#include "support/FakeDesktop.h"
#include "support/TemporaryLibrary.h"

#include <QDragMoveEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QtTest>

namespace mosaro::test {

/// A library with its sidebar, which can be closed and opened again as the window does it.
struct SidebarWorld : FakeDesktop {
    TemporaryLibrary library;
    base::ZNUtilities utilities;
    std::unique_ptr<organisation::MRLibraryView> view;
    bool busy = false;
    base::ProgressSink* progress = nullptr;

    SidebarWorld() { library.defaults().initialize(); }

    std::shared_ptr<store::Collections> add(const QString& title,
                                            const std::shared_ptr<store::Collections>& parent = {},
                                            qint64 type = store::kTypeCollection)
    {
        return library.addCollection(title, type, parent ? parent->collectionID() : QString());
    }

    void open(const QStringList& expanded = {})
    {
        for (const QString& id : expanded) {
            library.state().addExpandedCollection(id);
        }
        view = std::make_unique<organisation::MRLibraryView>(organisation::SidebarEnvironment{
            library.manager(), library.defaults(), library.prompts(), platform, utilities, classification,
            [this] { return busy; }, [] { return true; }, [] {}, pictureUnlessBad, progress});
        view->resize(231, 700);
        view->readLibrary();
        view->show();
        view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
    }

    void reopen()
    {
        view.reset();
        QVERIFY(library.reopen());
        open();
    }

    void post(QLatin1String notification, const QVariant& value = {})
    {
        utilities.postNotification(notification, value);
    }

    organisation::CollectionOutline& outline() const
    {
        return *view->findChild<organisation::CollectionOutline*>();
    }

    /// The visible row with a title; an invalid index when there is none.
    QModelIndex row(const QString& title) const
    {
        const auto& model = *outline().model();
        QModelIndex index = model.index(0, 0);
        while (index.isValid() && index.data().toString() != title) {
            index = outline().indexBelow(index);
        }
        return index;
    }

    void click(const QString& title, Qt::KeyboardModifiers modifiers = {}) const
    {
        const QRect rect = outline().visualRect(row(title));
        QTest::mouseClick(outline().viewport(), Qt::LeftButton, modifiers, rect.center());
    }

    void press(Qt::Key key) const { QTest::keyClick(&outline(), key); }

    /// The titles of the selection, as "A|B".
    QString selected() const
    {
        QStringList titles;
        for (const auto& element : view->selectedCollections()) {
            titles.append(element.title);
        }
        return titles.join(u'|');
    }

    /// Drops at a point of the tree, as the desktop would; whether the place accepted them.
    bool drop(const QMimeData& data, const QPoint& position) const
    {
        QWidget* viewport = outline().viewport();
        QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
        if (!move.isAccepted()) {
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(viewport, &leave);
            return false;
        }
        QDropEvent dropped(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &dropped);
        return true;
    }

    QLineEdit* editor() const { return outline().viewport()->findChild<QLineEdit*>(); }
};

} // namespace mosaro::test
