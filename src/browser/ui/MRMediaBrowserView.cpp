#include "browser/ui/MRMediaBrowserView.h"

#include "base/Text.h"
#include "kit/DragPicture.h"

#include <QDrag>
#include <QMimeData>
#include <algorithm>

namespace mosaro::browser {

namespace {

constexpr int kFrame = 16;
constexpr int kMargin = 12; ///< Lets five of the smallest and three of the largest cells into a new window.
constexpr int kZoomSettles = 120;
constexpr size_t kDragPictures = 3;

} // namespace

MRMediaBrowserView::MRMediaBrowserView(ItemList& items, QWidget* parent)
    : kit::GridView(parent), m_items(items), m_painter(items, m_previews)
{
    setAccessibleName(base::text("Accessible.Grid"));
    m_repaint.setSingleShot(true);
    m_repaint.setInterval(kFrame);
    m_zoomSettles.setSingleShot(true);
    m_zoomSettles.setInterval(kZoomSettles);
    connect(&m_previews, &PreviewLoader::loaded, &m_repaint, [this] {
        if (!m_repaint.isActive()) {
            m_repaint.start();
        }
    });
    connect(&m_repaint, &QTimer::timeout, viewport(), qOverload<>(&QWidget::update));
    connect(&m_zoomSettles, &QTimer::timeout, this, [this] {
        m_painter.setZoomMoves(false);
        viewport()->update();
    });
    connect(this, &kit::GridView::magnified, this, &MRMediaBrowserView::magnify);
    updateMetrics();
    setSource(this, &m_painter);
}

MRMediaBrowserView::~MRMediaBrowserView()
{
    setSource(nullptr, nullptr);
}

void MRMediaBrowserView::setZoomValue(double zoom)
{
    if (zoom == m_zoom) {
        return;
    }
    m_zoom = zoom;
    m_painter.setZoom(zoom);
    m_painter.setZoomMoves(true);
    m_zoomSettles.start();
    updateMetrics();
}

void MRMediaBrowserView::setCellOptions(const CellOptions& options)
{
    m_painter.setOptions(options);
    updateMetrics();
    viewport()->update();
}

void MRMediaBrowserView::updateMetrics()
{
    const bool titled = m_painter.options().titles;
    setMetrics({cellSize(m_zoom, titled), titled ? QSize(20, 20) : QSize(15, 10), kMargin});
}

void MRMediaBrowserView::reloadItems()
{
    m_items.refresh();
    m_previews.expireFileStates();
    reloadData();
}

std::vector<store::RowId> MRMediaBrowserView::selectedRows() const
{
    std::vector<store::RowId> rows;
    selectionIndexes().forEach([this, &rows](int index) { rows.push_back(m_items.ids()[size_t(index)]); });
    return rows;
}

void MRMediaBrowserView::magnify(double magnification)
{
    const double zoom = std::clamp(m_zoom + magnification, kSmallestZoom, kLargestZoom);
    if (zoom != m_zoom) {
        setZoomValue(zoom);
        Q_EMIT zoomValueChanged(zoom);
    }
}

void MRMediaBrowserView::paintEvent(QPaintEvent* event)
{
    m_painter.setRatio(devicePixelRatioF());
    kit::GridView::paintEvent(event);
}

/// Nothing but a copy is offered: a file manager that moved the files would take them out of the library.
/// Places of this program move the items all the same.
void MRMediaBrowserView::startDrag(int index)
{
    const ItemDrag items = m_dragSource ? m_dragSource() : ItemDrag();
    if (items.files.isEmpty()) {
        return;
    }
    auto* carried = new QMimeData;
    QList<QUrl> urls;
    for (const QString& file : items.files) {
        urls.append(QUrl::fromLocalFile(file));
    }
    carried->setUrls(urls);
    if (!items.record.dragItems.isEmpty()) {
        importing::writeMediaDrag(*carried, items.record);
    }
    auto* drag = new QDrag(this);
    drag->setMimeData(carried);
    drag->setPixmap(dragPicture(index, int(items.files.size())));
    drag->setHotSpot(kit::dragHotSpot());
    drag->exec(Qt::CopyAction);
}

/// The picture under the mouse, and beneath it other selected ones that are on show.
QPixmap MRMediaBrowserView::dragPicture(int index, int count)
{
    std::vector<QImage> pictures;
    const auto add = [this, &pictures](int shown) {
        if (QImage image = m_painter.picture(shown); !image.isNull()) {
            pictures.push_back(std::move(image));
        }
    };
    add(index);
    const kit::GridInterval visible = visibleItemIndexes();
    for (int other = visible.first; other <= visible.last && pictures.size() < kDragPictures; ++other) {
        if (other != index && selectionIndexes().contains(other)) {
            add(other);
        }
    }
    return kit::stackDragPicture(pictures, count, devicePixelRatioF());
}

int MRMediaBrowserView::count() const
{
    return m_items.count();
}

QString MRMediaBrowserView::title(int index) const
{
    return m_items.contentAt(index).title;
}

QString MRMediaBrowserView::toolTip(int index) const
{
    const CellContent& content = m_items.contentAt(index);
    const QString details = browser::accessibleText(content);
    return details.isEmpty() ? content.title : content.title + QLatin1Char('\n') + details;
}

QString MRMediaBrowserView::accessibleText(int index) const
{
    return browser::accessibleText(m_items.contentAt(index));
}

int MRMediaBrowserView::findTitle(const QString& prefix, int from) const
{
    return m_items.indexOfTitle(prefix, from);
}

} // namespace mosaro::browser
