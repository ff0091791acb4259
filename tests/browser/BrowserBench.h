#pragma once

#include "base/NotificationBus.h"
#include "browser/ui/MRBrowserView.h"
#include "browser/ui/MRMediaBrowserView.h"
#include "browser/ui/StatusRow.h"
#include "support/TemporaryLibrary.h"
#include "support/WindowTest.h"

#include <QLabel>
#include <QSlider>

namespace mosaro::test {

/// The browser over a library with one selected collection, "Shop", of items named by number, newest last.
struct BrowserBench {
    using Shape = store::SelectionElement::Shape;

    TemporaryLibrary library;
    base::NotificationBus bus;
    bool busy = false;
    int tab = 0;
    std::shared_ptr<store::Collections> collection = library.addCollection(QStringLiteral("Shop"));
    store::MediaSet media;
    std::unique_ptr<browser::MRBrowserView> view;

    explicit BrowserBench(int items = 0)
    {
        for (int number = 0; number < items; ++number) {
            const auto added = library.addMedia(QString::number(number), collection);
            added->setMediaDateImported(QDateTime(QDate(2024, 1, 1), QTime(0, 0)).addSecs(number * 60));
            media.ids.push_back(added->rowId());
            media.totalFileSize += added->mediaFileSize();
        }
        (void)library.context().save();
        view = std::make_unique<browser::MRBrowserView>(browser::BrowserEnvironment{
            library.manager(), library.defaults(), library.prompts(), [this] { return busy; },
            [this] { return tab; }, bus, [] { return QStringList{QStringLiteral("png")}; }});
        view->resize(900, 600);
        view->show();
        view->activateWindow();
        grid().setFocus();
        selectShop();
    }
    browser::MRMediaBrowserView& grid() const { return *view->findChild<browser::MRMediaBrowserView*>(); }

    store::SelectionElement node(Shape shape = Shape::CollectionNode, int type = store::kTypeCollection) const
    {
        return {shape, collection->collectionID(), type, collection->title(), collection->rowId()};
    }
    /// As the window does when the sidebar's selection changed.
    void select(const std::vector<store::SelectionElement>& selected, const store::MediaSet& set = {}) const
    {
        view->setSelectedCollections(selected);
        view->setMedia(set);
        view->setTotalFileSize(set.totalFileSize);
        view->sort();
    }
    void selectShop() const { select({node()}, media); }
};

} // namespace mosaro::test
