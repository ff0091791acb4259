#pragma once

#include <QMenu>
#include <QSet>

namespace mosaro::kit {

/// What stands before an item of a menu: nothing, that it holds, or that it holds for a part only.
enum class Mark { None, Check, Mixed };

/// A menu whose items have marks of three kinds. The marks are set by its owner and not by a click.
class MarkMenu : public QMenu {
    Q_OBJECT

public:
    using QMenu::QMenu;

    /// The icon, if there is one, stands between mark and title.
    QAction* addMarkedItem(const QIcon& icon, const QString& title);
    void setMark(QAction& item, Mark mark);
    [[nodiscard]] Mark mark(const QAction& item) const;

protected:
    void initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const override;

private:
    QSet<const QAction*> m_mixed;
};

} // namespace mosaro::kit
