// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/DiscsWindow.h"

#include "catalogue/Catalogue.h"
#include "platform/ui/PictureFile.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace nubo::catalogue {

namespace {

// Rows added or removed in quick succession (a search, a load) are counted once they pause.
constexpr int kRefreshDelayMs = 300;

} // namespace

DiscsWindow::DiscsWindow(Catalogue& catalogue, const platform::AppFolder& app, QWidget* parent)
    : QWidget(parent, Qt::Window), m_catalogue(catalogue)
{
    setObjectName(QStringLiteral("DiscsWindow"));
    setWindowTitle(QStringLiteral("Discos"));
    platform::setBackgroundPicture(*this, app, QStringLiteral("\\bitmap\\mainform1.jpg"));
    createControls();
    connectCatalogue();
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(kRefreshDelayMs);
    connect(&m_refresh, &QTimer::timeout, this, &DiscsWindow::refreshTotals);
    resize(900, 360);
}

void DiscsWindow::createControls()
{
    m_table = new QTableView(this);
    m_table->setObjectName(QStringLiteral("tblDiscos"));
    m_table->setModel(&m_catalogue.discs());
    m_table->setToolTip(QStringLiteral("F2 o escribir: cambia ORIGEN, UBICACION o NOTAS del "
                                       "disco; Esc cierra la ventana"));
    m_table->setSelectionBehavior(QAbstractItemView::SelectItems);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                             QAbstractItemView::AnyKeyPressed);
    m_table->setTabKeyNavigation(true);
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setStretchLastSection(false);
    m_totals = new QLabel(this);
    m_totals->setObjectName(QStringLiteral("lblTotales"));
    m_totals->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_message = new QLabel(this);
    m_message->setObjectName(QStringLiteral("lblMensaje"));
    m_message->setWordWrap(true);
    QPalette red = m_message->palette();
    red.setColor(QPalette::WindowText, QColor(0xB0, 0, 0));
    m_message->setPalette(red);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_totals);
    layout->addWidget(m_message);
}

void DiscsWindow::connectCatalogue()
{
    const auto rowsChanged = [this] {
        if (isVisible())
            m_refresh.start();
    };
    const CatalogueList* list = &m_catalogue.list();
    connect(list, &QAbstractItemModel::rowsInserted, this, rowsChanged);
    connect(list, &QAbstractItemModel::rowsRemoved, this, rowsChanged);
    connect(list, &QAbstractItemModel::modelReset, this, rowsChanged);
    connect(list, &QAbstractItemModel::dataChanged, this, rowsChanged);
    DiscList* discs = &m_catalogue.discs();
    connect(discs, &DiscList::editRefused, this, &DiscsWindow::showRefusal);
    connect(discs, &QAbstractItemModel::rowsInserted, this, &DiscsWindow::showTotalsLine);
    connect(discs, &QAbstractItemModel::rowsRemoved, this, &DiscsWindow::showTotalsLine);
    connect(discs, &QAbstractItemModel::modelReset, this, &DiscsWindow::showTotalsLine);
    // A successful edit ends what an earlier refusal said, and its text is shown whole.
    connect(discs, &QAbstractItemModel::dataChanged, this, [this] {
        m_message->clear();
        m_table->resizeColumnsToContents();
    });
}

void DiscsWindow::open()
{
    // The first time over the list window, as wide as the fields need and the screen allows.
    if (!isVisible())
        refreshTotals();
    if (!isVisible() && !testAttribute(Qt::WA_Moved) && parentWidget()) {
        fitToFields();
        move(parentWidget()->frameGeometry().center() - rect().center());
    }
    show();
    raise();
    activateWindow();
    const QModelIndex first = m_catalogue.discs().index(0, int(core::DiscField::Ubicacion));
    if (first.isValid() && !m_table->currentIndex().isValid())
        m_table->setCurrentIndex(first);
    m_table->setFocus();
}

void DiscsWindow::fitToFields()
{
    const QScreen* shown = parentWidget() ? parentWidget()->screen() : screen();
    const int room = shown ? shown->availableGeometry().width() - 40 : width();
    const QMargins margins = layout()->contentsMargins();
    const int needed = m_table->horizontalHeader()->length() + 2 * m_table->frameWidth() +
                       m_table->verticalScrollBar()->sizeHint().width() + margins.left() +
                       margins.right();
    resize(std::clamp(needed, width(), std::max(width(), room)), height());
}

void DiscsWindow::refreshTotals()
{
    m_refresh.stop();
    m_catalogue.refreshDiscTotals();
    m_table->resizeColumnsToContents();
    showTotalsLine();
}

void DiscsWindow::showTotalsLine()
{
    const GroupTotals& all = m_catalogue.discs().totals().overall();
    const QLocale locale;
    m_totals->setText(QStringLiteral("Total: %1 discos, %2 archivos, %3 bytes, %4")
                          .arg(locale.toString(m_catalogue.discs().rowCount()),
                               locale.toString(all.files), locale.toString(all.bytes),
                               DiscTotals::durationText(all.seconds)));
}

void DiscsWindow::showRefusal(const QString& reason)
{
    m_message->setText(reason);
}

void DiscsWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
        return;
    }
    QWidget::keyPressEvent(event);
}

} // namespace nubo::catalogue
