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

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    QString m_path;
};

} // namespace mosaro::browser
