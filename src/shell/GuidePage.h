#pragma once

#include <QWidget>
#include <memory>

class QSvgRenderer;

namespace mosaro::shell {

/// One page of the guide: a drawing, a title and, but for the last page, a sentence or two.
class GuidePage : public QWidget {
    Q_OBJECT

public:
    static constexpr int kCount = 7; ///< Pages to leaf through; page 8 is the last one.
    static constexpr int kLast = 8;

    explicit GuidePage(int index, QWidget* parent = nullptr);
    ~GuidePage() override;

    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QString subtitle() const { return m_subtitle; }
    [[nodiscard]] bool hasArtwork() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_title;
    QString m_subtitle;
    std::unique_ptr<QSvgRenderer> m_artwork;
};

} // namespace mosaro::shell
