#pragma once

#include <QPointer>
#include <QWidget>

class QParallelAnimationGroup;
class QPushButton;

namespace mosaro::shell {

class GuidePage;

/// Which of the guide's buttons stand on a page.
struct GuideButtons {
    bool previous = false;
    bool next = false;
    bool done = false;
    bool operator==(const GuideButtons&) const = default;

    [[nodiscard]] static GuideButtons onPage(int index);
};

/// The first-run guide: seven pages to leaf through and a last one. Fills the overlay that hosts it. The
/// arrow keys and Return leaf; Escape does nothing, so that nobody loses the guide by a slip.
class Guide : public QWidget {
    Q_OBJECT

public:
    enum Direction { Back = 0, On = 1 };

    explicit Guide(QWidget* parent = nullptr);
    ~Guide() override;

    /// Starts at page 1.
    void showGuidePage();
    /// Back or on by one page; stays where there is none.
    void naviagateGuidePage(int tag);
    void showLastGuide();
    /// Slides the guide away upwards and ends it.
    void closeGuidePage();

    /// 1 to 7; 8 for the last page.
    [[nodiscard]] int guideIndex() const { return m_index; }

Q_SIGNALS:
    /// Slid away; the host takes the guide down.
    void finished();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showPage(int index, int direction);
    void push(GuidePage* page, int direction);
    void settle();
    void updateButtons();
    void layOut();
    [[nodiscard]] QRect pageRect() const;

    QWidget* m_box;      ///< What slides away.
    QWidget* m_pageClip; ///< Keeps a page that is pushed within the box.
    QPointer<GuidePage> m_page;
    QPointer<QParallelAnimationGroup> m_push;
    QPushButton* m_previous;
    QPushButton* m_next;
    QPushButton* m_done;
    QPushButton* m_letsGo;
    int m_index = 1;
    bool m_closing = false;
};

} // namespace mosaro::shell
