#pragma once

#include <QImage>
#include <QWidget>
#include <vector>

namespace mosaro::importing {

/// Shows one preview, whole and in proportion; a transparent one lies on a checker.
class PreviewWell : public QWidget {
    Q_OBJECT

public:
    explicit PreviewWell(QWidget* parent = nullptr);

    /// The bytes of a preview. Bytes that are no picture clear the well.
    void setPreview(const QByteArray& bytes);
    void clear();
    [[nodiscard]] const QImage& picture() const { return m_picture; }
    [[nodiscard]] QSize sizeHint() const override { return {230, 180}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_picture;
};

/// Up to four colours side by side; places without one stay empty.
class SwatchRow : public QWidget {
    Q_OBJECT

public:
    static constexpr int kCount = 4;

    explicit SwatchRow(QWidget* parent = nullptr);

    void setColors(std::vector<QColor> colors);
    [[nodiscard]] const std::vector<QColor>& colors() const { return m_colors; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::vector<QColor> m_colors;
};

} // namespace mosaro::importing
