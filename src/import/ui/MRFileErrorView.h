#pragma once

#include "import/ImportRun.h"

#include <QWidget>
#include <functional>

class QLabel;
class QListView;
class QPushButton;

namespace mosaro::importing {

class FailedPathModel;

/// The window that tells which files did not come in and why. There is one at a time: a second showing fills
/// the one that is up. Deletes itself when it is closed.
class MRFileErrorView : public QWidget {
    Q_OBJECT

public:
    using Reveal = std::function<void(const QString& path)>;

    /// Shows the list, in the middle of `near` or of the screen. An empty list shows nothing and gives null.
    static MRFileErrorView* showFailedPaths(std::vector<FailedPath> failed, Reveal reveal,
                                            const QWidget* near = nullptr);
    /// The one that is up, or null.
    [[nodiscard]] static MRFileErrorView* current();

    ~MRFileErrorView() override;

    [[nodiscard]] int count() const;
    /// The whole list as text, for the clipboard.
    [[nodiscard]] QString listAsText() const;
    void copyList();
    void revealCurrent();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    MRFileErrorView();
    void layOut();
    void setFailedPaths(std::vector<FailedPath> failed, Reveal reveal);
    void centre(const QWidget* near);

    Reveal m_reveal;
    QLabel* m_title;
    QLabel* m_count;
    QListView* m_list;
    QPushButton* m_revealButton;
    QPushButton* m_copyButton;
    QPushButton* m_closeButton;
    FailedPathModel* m_model = nullptr; ///< Child of the list.
};

} // namespace mosaro::importing
