#include "import/ui/MRFileErrorView.h"

#include "base/Text.h"
#include "import/ui/FailedPathDelegate.h"
#include "import/ui/FailedPathModel.h"
#include "kit/Look.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QLocale>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace mosaro::importing {

namespace {

constexpr QSize kWindowSize{760, 440};

QPointer<MRFileErrorView>& instance()
{
    static QPointer<MRFileErrorView> view;
    return view;
}

} // namespace

MRFileErrorView* MRFileErrorView::showFailedPaths(std::vector<FailedPath> failed, Reveal reveal,
                                                  const QWidget* near)
{
    if (failed.empty()) {
        return nullptr;
    }
    if (instance() == nullptr) {
        instance() = new MRFileErrorView;
    }
    MRFileErrorView* view = instance();
    view->setFailedPaths(std::move(failed), std::move(reveal));
    view->centre(near);
    view->show();
    view->raise();
    view->activateWindow();
    return view;
}

MRFileErrorView* MRFileErrorView::current()
{
    return instance();
}

MRFileErrorView::MRFileErrorView()
    : QWidget(nullptr, Qt::Window), m_title(new QLabel(base::text("Error.Import.Media"))),
      m_count(new QLabel), m_list(new QListView), m_revealButton(new QPushButton(base::text("Basic.Reveal"))),
      m_copyButton(new QPushButton(base::text("Basic.Copy.List"))),
      m_closeButton(new QPushButton(base::text("Basic.Close")))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(base::text("Window.Import.Errors"));
    layOut();
    m_list->setAccessibleName(base::text("Error.Import.Media"));
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setMouseTracking(true);
    auto* delegate = new FailedPathDelegate(m_list);
    m_list->setItemDelegate(delegate);
    m_revealButton->setToolTip(base::text("Tooltip.Reveal.File"));
    m_copyButton->setToolTip(base::text("Tooltip.Copy.Failed.Files"));

    connect(delegate, &FailedPathDelegate::revealClicked, this, [this](const QString& path) {
        if (m_reveal) {
            m_reveal(path);
        }
    });
    connect(m_list, &QListView::activated, this, &MRFileErrorView::revealCurrent);
    connect(m_revealButton, &QPushButton::clicked, this, &MRFileErrorView::revealCurrent);
    connect(m_copyButton, &QPushButton::clicked, this, &MRFileErrorView::copyList);
    connect(m_closeButton, &QPushButton::clicked, this, &QWidget::close);
}

MRFileErrorView::~MRFileErrorView() = default;

void MRFileErrorView::layOut()
{
    m_title->setFont(kit::font(14, QFont::DemiBold));
    m_title->setWordWrap(true);
    m_count->setFont(kit::font(11));
    m_count->setForegroundRole(QPalette::PlaceholderText);
    auto* head = new QHBoxLayout;
    head->addWidget(m_title, 1);
    head->addWidget(m_count, 0, Qt::AlignBottom);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kit::metric::gap);
    buttons->addWidget(m_copyButton);
    buttons->addStretch();
    buttons->addWidget(m_revealButton);
    buttons->addWidget(m_closeButton);
    auto* layout = new QVBoxLayout(this);
    const int margin = kit::metric::wideGap;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(12);
    layout->addLayout(head);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);
    m_closeButton->setDefault(true);
    resize(kWindowSize);
}

void MRFileErrorView::setFailedPaths(std::vector<FailedPath> failed, Reveal reveal)
{
    m_reveal = std::move(reveal);
    const QAbstractItemModel* before = m_model;
    const QString count = QLocale().toString(qulonglong(failed.size()));
    m_count->setText(failed.size() == 1 ? base::text("Label.Failed.File")
                                        : base::text("Label.Failed.Files", count));
    m_model = new FailedPathModel(std::move(failed), m_list);
    m_list->setModel(m_model);
    delete before;
    m_list->setCurrentIndex(m_model->index(0));
    m_list->setFocus();
}

void MRFileErrorView::centre(const QWidget* near)
{
    const QScreen* screen = near != nullptr ? near->screen() : QGuiApplication::primaryScreen();
    if (near == nullptr && screen == nullptr) {
        return;
    }
    const QRect room = near != nullptr ? near->window()->frameGeometry() : screen->availableGeometry();
    QRect place(QPoint(0, 0), size());
    place.moveCenter(room.center());
    move(place.topLeft());
}

int MRFileErrorView::count() const
{
    return m_model->rowCount();
}

QString MRFileErrorView::listAsText() const
{
    return m_model->asText();
}

void MRFileErrorView::copyList()
{
    QGuiApplication::clipboard()->setText(listAsText());
}

void MRFileErrorView::revealCurrent()
{
    const QModelIndex index = m_list->currentIndex();
    if (m_reveal && index.isValid()) {
        m_reveal(index.data(FailedPathModel::PathRole).toString());
    }
}

void MRFileErrorView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) {
        copyList();
    } else if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
        close();
    } else {
        QWidget::keyPressEvent(event);
    }
}

} // namespace mosaro::importing
