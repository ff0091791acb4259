#pragma once

#include <QTimer>
#include <QWidget>

namespace mosaro::browser {
class MRBrowserView;
}
namespace mosaro::organisation {
class MRTagController;
struct TagPanelEnvironment;
} // namespace mosaro::organisation

namespace mosaro::shell {

/// The browser with the holder at its right that opens for the panels about the selected items: the tags.
/// What the holder shows follows the browser's selection.
class InspectorPane : public QWidget {
    Q_OBJECT

public:
    /// Takes the browser. The holder is closed.
    InspectorPane(browser::MRBrowserView* browser, const organisation::TagPanelEnvironment& environment,
                  QWidget* parent = nullptr);
    ~InspectorPane() override;

    [[nodiscard]] bool isOpenedInspector() const { return !m_holder->isHidden(); }
    void setInspectorOpen(bool open);
    /// Opens the holder where it is closed; the field for a new tag takes the keyboard.
    void showTagView();

Q_SIGNALS:
    void inspectorToggled(bool open);

protected:
    /// Escape gives the keyboard back to the browser.
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] QWidget* makeHolder();
    void updateItems();
    void keepSelection();

    browser::MRBrowserView* m_browser;
    organisation::MRTagController* m_tags;
    QWidget* m_holder;
    QTimer m_followsSelection; ///< One update for a burst of changes, as a rubber band makes them.
};

} // namespace mosaro::shell
