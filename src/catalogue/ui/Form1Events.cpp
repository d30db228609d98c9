// SPDX-License-Identifier: GPL-3.0-or-later
// The list window's keys, pointer events, modes and timers.
#include "catalogue/Catalogue.h"
#include "catalogue/EntryOpener.h"
#include "catalogue/ISearchLauncher.h"
#include "catalogue/ListFilter.h"
#include "catalogue/RowDetails.h"
#include "catalogue/ui/Form1.h"
#include "core/Options.h"
#include "platform/ui/PictureFile.h"

#include <QActionGroup>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScreen>
#include <QWindow>

namespace nubo::catalogue {

namespace {

constexpr double kTwipsPerPixel = 15.0;
constexpr double kGrowTargetTwips = 10700.0;
constexpr double kGrowStepTwips = 110.0;
constexpr int kTitleBarGuess = 40; // before the window manager has framed the window
constexpr int kFlashTicks = 5;     // the counter runs 0..5: six ticks

} // namespace

// The window sees keys before its controls, so its key shortcuts win over the focused control.
void Form1::installKeyPreview()
{
    installEventFilter(this);
    for (QWidget* child : findChildren<QWidget*>())
        child->installEventFilter(this);
}

bool Form1::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress: {
        if (qobject_cast<QMenu*>(watched))
            break; // open menus keep their own keys
        // A key may move other rows under a pointer that stays put.
        m_lastPointerRow = -1;
        const auto* key = static_cast<QKeyEvent*>(event);
        return handleWindowKey(key->key(), key->modifiers());
    }
    case QEvent::MouseButtonPress:
        if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
            return handlePicturePress(watched);
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool Form1::handleWindowKey(int key, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier)
        return handleControlKey(key);
    switch (key) {
    case Qt::Key_F3:
        emit searchWindowRequested();
        return true;
    case Qt::Key_F4:
        emit optionsWindowRequested();
        return true;
    case Qt::Key_F5:
        emit sheetConfigurationRequested();
        return true;
    case Qt::Key_F12:
        emergencyExit();
        return true;
    case Qt::Key_Escape:
        escape();
        return true;
    case Qt::Key_6: // the keypad's 6 redraws; the key still reaches the control
        if (modifiers & Qt::KeypadModifier) {
            ListView1->viewport()->update();
            update();
        }
        return false;
    default:
        return false;
    }
}

bool Form1::handleControlKey(int key)
{
    switch (key) {
    case Qt::Key_A:
        emit searchWindowRequested();
        return true;
    case Qt::Key_V:
        m_catalogue.EmptyList();
        return true;
    case Qt::Key_O:
        emit sheetConfigurationRequested();
        return true;
    case Qt::Key_T:
        toggleOnTop();
        return true;
    default:
        return false;
    }
}

bool Form1::handlePicturePress(QObject* watched)
{
    if (watched == PicOnTop) {
        toggleOnTop();
    } else if (watched == Picture2) {
        m_catalogue.EmptyList();
    } else if (watched == Picture4) {
        emit searchWindowRequested();
    } else if (watched == PicExcelConf) {
        emit sheetConfigurationRequested();
    } else {
        return false;
    }
    return true;
}

void Form1::chooseMode(ListMode mode)
{
    if (mode != m_mode)
        applyMode(mode);
}

void Form1::applyMode(ListMode mode)
{
    m_mode = mode;
    const ListModeRules rules = rulesOf(mode);
    ListView1->setEditTriggers(rules.editOnClick ? QAbstractItemView::SelectedClicked
                                                 : QAbstractItemView::NoEditTriggers);
    ListView1->setAllColumnsShowFocus(rules.allColumnsShowFocus);
    refreshCommands();
    QAction* checked = mode == ListMode::Funcional ? Funcional
                       : mode == ListMode::Edit    ? Edit
                                                   : Mover;
    checked->setChecked(true);
}

void Form1::editFocusedName()
{
    const QModelIndex index = m_filter->indexAt(focusedPosition(), Column::Nombre);
    if (!index.isValid())
        return;
    ListView1->setCurrentIndex(index);
    ListView1->edit(index);
}

bool Form1::isOnTop() const
{
    return Check1->isChecked();
}

void Form1::toggleOnTop()
{
    Check1->setChecked(!Check1->isChecked());
    const bool onTop = Check1->isChecked();
    const QPixmap picture =
        platform::loadPicture(m_app, onTop ? QStringLiteral("\\bitmap\\bool3.jpg")
                                           : QStringLiteral("\\bitmap\\bool2.jpg"));
    if (!picture.isNull())
        PicOnTop->setPixmap(picture);
    // The stacking flag goes to the window system directly: setWindowFlag would hide the
    // window and hand the keyboard to another one, so Ctrl+T, Delete or F2 would go astray.
    Qt::WindowFlags flags = windowFlags();
    flags.setFlag(Qt::WindowStaysOnTopHint, onTop);
    overrideWindowFlags(flags);
    if (QWindow* handle = windowHandle())
        handle->setFlags(flags);
}

void Form1::escape()
{
    emit cancelRequested();
    if (m_search && m_search->stop())
        mnuFindFiles->setVisible(false);
}

// The emergency exit; kept: unlike every other way out it asks nothing and saves nothing.
void Form1::emergencyExit()
{
    m_catalogue.list().clearForExit();
    emit endProgramRequested();
}

bool Form1::exitProgram()
{
    if (m_catalogue.EmptyList() == EmptyOutcome::Stopped)
        return false;
    emit sceneStepBackRequested();
    if (m_search)
        m_search->stop();
    hide();
    return true;
}

void Form1::closeEvent(QCloseEvent* event)
{
    // Windows are hidden, never destroyed, before the program ends.
    event->ignore();
    exitProgram();
}

void Form1::showRightClickMenu(const QPoint& globalPos)
{
    if (!rulesOf(m_mode).popupEnabled || m_catalogue.list().isEmpty())
        return;
    mnuOpcionesLista->popup(globalPos);
}

// The position of the one selected row; -1 when none or several are selected.
int Form1::selectedPosition() const
{
    const QModelIndexList rows = ListView1->selectionModel()->selectedRows();
    return rows.size() == 1 ? m_filter->positionOf(rows.first()) : -1;
}

RowFacts Form1::factsOf(int position) const
{
    const CatalogueRow& row = m_catalogue.list().row(position);
    return RowFacts::of(row, m_catalogue.discs().find(row.origen));
}

void Form1::openOnDoubleClick()
{
    if (rulesOf(m_mode).doubleClickOpens)
        m_opener.ExecuteOnDoubleClick(focusedPosition());
}

void Form1::showDetailsIfOn(int position)
{
    if (m_options.isOn(core::Option::MostrarPro) && position >= 0)
        showDetailsOf(position);
}

void Form1::showDetailsOf(int position)
{
    ListView1->setToolTip(QString());
    m_detailsRow = m_catalogue.list().indexAt(position);
    const RowDetailsView view =
        m_details.ShowRowDetails(m_catalogue.list(), position, m_detailsText);
    ListView1->setToolTip(view.toolTip);
    ListView1->viewport()->setToolTip(view.toolTip);
    m_detailsText = view.boxText;
    // The tag's zero-byte padding stays in the text but draws as nothing.
    txtMp3Info->setPlainText(QString(m_detailsText)
                                 .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
                                 .remove(QChar(0)));
    txtMp3Info->setVisible(view.boxVisible);
}

void Form1::forgetDetails()
{
    m_detailsText.clear();
    txtMp3Info->clear();
}

void Form1::forgetDetailsOfGoneRow()
{
    if (m_detailsRow.isValid())
        return;
    forgetDetails();
    ListView1->setToolTip(QString());
    ListView1->viewport()->setToolTip(QString());
}

std::vector<int> Form1::selectedPositions() const
{
    // The selection's ranges, not selectedRows(), which tests every row against every range:
    // ten thousand separate rows would take seconds.
    QModelIndexList rows;
    for (const QItemSelectionRange& range : ListView1->selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.append(m_filter->index(row, 0));
    }
    return m_filter->positionsOf(rows);
}

void Form1::deleteSelectedRows()
{
    m_catalogue.DeleteSelectedRows(selectedPositions());
}

// Kept: the flash counter is never set back, so only the first run flashes.
void Form1::flashTick()
{
    if (m_flashCount > kFlashTicks) {
        Timer1->stop();
        return;
    }
    m_flashFlag = !m_flashFlag;
    if (m_flashFlag)
        QApplication::alert(this);
    ++m_flashCount;
}

void Form1::growTick()
{
    if (m_growHeight >= m_growTarget) {
        Timer2->stop();
        return;
    }
    resize(width(), qRound(m_growHeight / kTwipsPerPixel));
    m_growHeight += kGrowStepTwips;
}

void Form1::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Whatever its controls ask for, the window stays within the screen's width.
    if (const QScreen* screen = this->screen())
        setMaximumWidth(screen->availableGeometry().width() - (frameGeometry().width() - width()));
    if (m_loaded)
        return;
    m_loaded = true;
    restoreColumns();
    m_growTarget = kGrowTargetTwips;
    m_growHeight = height() * kTwipsPerPixel;
    makeRoomToGrow();
    Timer2->start();
}

// The window grows downwards from where it opened: on a screen too short for the grown
// window, it is moved up first and its target cut to the screen, so it stays whole.
void Form1::makeRoomToGrow()
{
    const QScreen* screen = this->screen();
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    const int frame = std::max(frameGeometry().height() - height(), kTitleBarGuess);
    m_growTarget = std::min(m_growTarget, (available.height() - frame) * kTwipsPerPixel);
    const int bottom = y() + frame + qRound(m_growTarget / kTwipsPerPixel);
    if (bottom > available.bottom() + 1)
        move(x(), std::max(available.top(), y() - (bottom - available.bottom() - 1)));
}

} // namespace nubo::catalogue
