#include "import/ui/ImportSheet.h"

#include "base/Text.h"
#include "import/ui/PreviewWell.h"
#include "kit/Look.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace mosaro::importing {

namespace {

constexpr int kSheetWidth = 330;

QLabel* smallLabel()
{
    auto* label = new QLabel;
    label->setFont(kit::font(11));
    label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

/// The sentence with the file's name cut in the middle, so that the sentence fits one line.
QString fittingText(const QString& file, const QFontMetrics& metrics, int width)
{
    const int words = metrics.horizontalAdvance(base::text("Basic.Import.Media", QString()));
    return base::text("Basic.Import.Media",
                      metrics.elidedText(file, Qt::ElideMiddle, qMax(40, width - words)));
}

} // namespace

ImportSheet::ImportSheet(QWidget* parent)
    : QWidget(parent), m_text(new QLabel), m_bar(new QProgressBar), m_percent(smallLabel()),
      m_count(smallLabel()), m_well(new PreviewWell), m_swatches(new SwatchRow), m_stop(new QPushButton)
{
    setFixedWidth(kSheetWidth);
    m_text->setTextFormat(Qt::PlainText);
    m_bar->setRange(0, 100);
    m_bar->setTextVisible(false);
    m_bar->setAccessibleName(base::text("Accessible.Progress"));
    m_well->setAccessibleName(base::text("Accessible.Import.Preview"));
    m_stop->setAutoDefault(false);
    m_stop->setToolTip(base::text("Tooltip.Stop.Import"));

    auto* numbers = new QHBoxLayout;
    numbers->addWidget(m_percent);
    numbers->addStretch();
    numbers->addWidget(m_count);
    auto* foot = new QHBoxLayout;
    foot->addWidget(m_swatches);
    foot->addStretch();
    foot->addWidget(m_stop);

    auto* layout = new QVBoxLayout(this);
    const int margin = kit::metric::wideGap;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(kit::metric::gap);
    layout->addWidget(m_text);
    layout->addWidget(m_bar);
    layout->addLayout(numbers);
    layout->addSpacing(kit::metric::gap);
    layout->addWidget(m_well, 0, Qt::AlignHCenter);
    layout->addSpacing(kit::metric::gap);
    layout->addLayout(foot);

    connect(m_stop, &QPushButton::clicked, this, [this] {
        showStopping();
        Q_EMIT stopRequested();
    });
    resetProgress(0);
}

void ImportSheet::resetProgress(int total)
{
    m_text->setText(base::text("Basic.Import.Preparing"));
    m_text->setToolTip({});
    m_bar->setValue(0);
    m_percent->setText(QString());
    m_count->setText(total > 0
                         ? base::text("Label.Import.Count", QLocale().toString(0), QLocale().toString(total))
                         : QString());
    m_well->clear();
    m_swatches->setColors({});
    m_stop->setText(base::text("Basic.Stop"));
    m_stop->setEnabled(true);
}

void ImportSheet::showProgress(const ImportProgress& progress)
{
    const QString name = QFileInfo(progress.file).fileName();
    const int room = kSheetWidth - 2 * kit::metric::wideGap;
    m_text->setText(fittingText(name, m_text->fontMetrics(), room));
    m_text->setToolTip(name);
    m_bar->setValue(progress.percent());
    m_percent->setText(base::text("Label.Percent", QString::number(progress.percent())));
    const QLocale locale;
    m_count->setText(
        base::text("Label.Import.Count", locale.toString(progress.index), locale.toString(progress.total)));
    // A failed file brings no picture; the last good one stays on show.
    if (!progress.preview.isEmpty()) {
        m_well->setPreview(progress.preview);
        std::vector<QColor> colors;
        for (const base::ColorValue& value : progress.colors) {
            colors.push_back(value.toColor());
        }
        m_swatches->setColors(std::move(colors));
    }
}

void ImportSheet::showStopping()
{
    m_stop->setText(base::text("Basic.Stopping"));
    m_stop->setEnabled(false);
}

QString ImportSheet::text() const
{
    return m_text->text();
}

int ImportSheet::percent() const
{
    return m_bar->value();
}

} // namespace mosaro::importing
