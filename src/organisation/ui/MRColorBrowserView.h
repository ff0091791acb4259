#pragma once

#include "kit/GridView.h"
#include "organisation/ui/MRColorTagBrowserCell.h"

namespace mosaro::organisation {

/// The grid of swatches in their groups, and what assistive programs are told of them.
class MRColorBrowserView : public kit::GridView, private kit::GridModel {
    Q_OBJECT

public:
    explicit MRColorBrowserView(const ColorGroups& groups, QWidget* parent = nullptr);
    ~MRColorBrowserView() override;

    void setCellOptions(const SwatchCellOptions& options);
    /// The colours are others now: nothing is selected. An empty grid shows the guide text.
    void reloadColors();
    [[nodiscard]] const QString& guideString() const { return m_guideString; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // What kit::GridView asks.
    [[nodiscard]] int count() const override;
    [[nodiscard]] std::vector<kit::GridSection> sections() const override;
    [[nodiscard]] QString title(int index) const override;
    [[nodiscard]] QString toolTip(int index) const override;
    [[nodiscard]] QString accessibleText(int index) const override;
    [[nodiscard]] int findTitle(const QString& prefix, int from) const override;

    [[nodiscard]] const MRColorTagItem& item(int index) const { return m_groups.colors()[size_t(index)]; }

    const ColorGroups& m_groups;
    MRColorTagBrowserCell m_cell;
    QString m_guideString;
};

} // namespace mosaro::organisation
