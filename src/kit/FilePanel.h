#pragma once

#include <QFileDialog>
#include <QUrl>

namespace mosaro::kit {

/// The window that asks for files and folders, in the kit's own dress on every desktop.
class FilePanel : public QFileDialog {
    Q_OBJECT

public:
    explicit FilePanel(QWidget* parent = nullptr);
    /// The toolkit keeps the places at the side for all its programs: they are put back as they were.
    ~FilePanel() override;

private:
    void layOut();

    QList<QUrl> m_placesBefore;
};

} // namespace mosaro::kit
