#pragma once

#include <QStringList>
#include <QWidget>

namespace mosaro::browser {

/// The row above the grid: the title of the selection and the folders around it.
class HeadLine : public QWidget {
public:
    explicit HeadLine(QWidget* parent = nullptr);

    void setTitle(const QString& title);
    /// Outermost first.
    void setPath(const QStringList& folders);
    /// A control at the right end; taken as a child.
    void setTrailing(QWidget& control);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    QString m_path;
    QWidget* m_trailing = nullptr;
};

} // namespace mosaro::browser
