#pragma once

#include "base/PreferenceKeys.h"
#include "base/ZNUtilities.h"
#include "kit/Sheet.h"
#include "organisation/ui/CollectionOutline.h"
#include "organisation/ui/MRLibraryView.h"
#include "support/FakeDesktop.h"
#include "support/TemporaryLibrary.h"
#include "support/WindowTest.h"

#include <QLineEdit>

namespace mosaro::test {

/// A library with its sidebar, which can be closed and opened again as the window does it.
struct SidebarWorld : FakeDesktop {
    TemporaryLibrary library;
    base::ZNUtilities utilities;
    FakeNotifier notifier;
    FakeSounds sounds;
    std::unique_ptr<organisation::MRLibraryView> view;
    bool busy = false;
    base::ProgressSink* progress = nullptr;

    SidebarWorld()
    {
        library.defaults().initialize();
        library.defaults().updateUserDefaults(base::PREFS_GENERAL_SOUND_EFFECTS, true);
        utilities.setPrompts(&library.prompts());
        utilities.setUserNotifier(&notifier);
        utilities.setSoundPlayer(&sounds);
    }

    std::shared_ptr<store::Collections> add(const QString& title,
                                            const std::shared_ptr<store::Collections>& parent = {},
                                            qint64 type = store::kTypeCollection)
    {
        return library.addCollection(title, type, parent ? parent->collectionID() : QString());
    }

    organisation::SidebarEnvironment environment()
    {
        return {library.manager(),
                library.defaults(),
                library.prompts(),
                platform,
                utilities,
                classification,
                [this] { return busy || (view && kit::Sheet::isAttachedTo(*view)); },
                [] { return true; },
                [] {},
                pictureUnlessBad,
                progress};
    }

    void open(const QStringList& expanded = {})
    {
        for (const QString& id : expanded)
            library.state().addExpandedCollection(id);
        view = std::make_unique<organisation::MRLibraryView>(environment());
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
        while (index.isValid() && index.data().toString() != title)
            index = outline().indexBelow(index);
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
        for (const auto& element : view->selectedCollections())
            titles.append(element.title);
        return titles.join(u'|');
    }

    /// Drops at the row with a title, below all rows for an empty one; whether the place took it.
    bool drop(const QMimeData& data, const QString& title) const
    {
        QWidget& viewport = *outline().viewport();
        const QPoint below(100, viewport.height() - 4);
        return test::drop(viewport, data,
                          title.isEmpty() ? below : outline().visualRect(row(title)).center());
    }

    QLineEdit* editor() const { return outline().viewport()->findChild<QLineEdit*>(); }
};

} // namespace mosaro::test
