// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/ui/Form7.h"

#include "platform/ui/NamedChild.h"
#include "platform/ui/PictureFile.h"

#include <QCheckBox>
#include <QEvent>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

namespace nubo::database {
namespace {

constexpr int kLabelX = 24;
constexpr int kFieldX = 168;
constexpr int kFirstRow = 64;
constexpr int kRowHeight = 40;

QColor colorOf(quint32 rgb)
{
    return QColor::fromRgb(rgb & 0xFFFFFF);
}

void setBase(QLineEdit* field, quint32 rgb)
{
    QPalette palette = field->palette();
    palette.setColor(QPalette::Base, colorOf(rgb));
    field->setPalette(palette);
}

} // namespace

struct Form7::FieldText
{
    QLineEdit* Form7::*field;
    const char* name;
    const char* label;
    const char* tooltip;
};

const Form7::FieldText Form7::kFields[kFieldCount] = {
    {&Form7::TxtNameXls, "TxtNameXls", "Nombre de la hoja",
     "Determine el nombre de la hoja que se creará en Excel"},
    {&Form7::TxtColorborder, "TxtColorborder", "Color de linea",
     "Establece el color de las lineas que rodean a las celdas"},
    {&Form7::TxtcolorRelleno, "TxtcolorRelleno", "Color de relleno",
     "Elija el color de relleno de las celdas"},
    {&Form7::Text1, "Text1", "Opciones de Fuente", "Elija el tipo de fuente,tamaño,etc..."},
    {&Form7::TxtBorStyle, "TxtBorStyle", "Estilo de linea",
     "Establece el tipo de linea que rodea a cada celda"},
    {&Form7::TxtBorWidth, "TxtBorWidth", "Grosor de linea", "Establece el ancho de la linea"},
};

Form7::Form7(Deps deps, QWidget* parent) : QWidget(parent), m_deps(deps), m_hover(deps.app, this)
{
    setObjectName(QStringLiteral("Form7"));
    setWindowTitle(QStringLiteral("Configuracion de Hoja Excel"));
    setWindowIcon(QIcon(m_deps.app.resolve(QStringLiteral("\\icons\\Nubologo.ico"))));
    setFixedSize(440, 380);
    setMouseTracking(true);
    setBackground();
    createFields();
    createButtons();
    m_deps.settings = m_deps.store.load();
    refresh();
    connectControls();
}

void Form7::setBackground()
{
    platform::setBackgroundPicture(*this, m_deps.app, QStringLiteral("\\bitmap\\mainform7.jpg"));
}

void Form7::createFields()
{
    for (std::size_t i = 0; i < kFieldCount; ++i) {
        const FieldText& text = kFields[i];
        const int y = kFirstRow + int(i) * kRowHeight;
        auto* field = new QLineEdit(this);
        field->setObjectName(QLatin1String(text.name));
        field->setToolTip(QString::fromUtf8(text.tooltip));
        this->*text.field = field;
        auto* label = new QLabel(QString::fromUtf8(text.label), this);
        label->setObjectName(QStringLiteral("Label%1").arg(i + 1));
        label->setToolTip(field->toolTip());
        label->setGeometry(kLabelX, y, kFieldX - kLabelX - 8, 28);
        label->setBuddy(field);
        Label[i] = label;
    }
    TxtNameXls->setGeometry(kFieldX, kFirstRow, 248, 28);
    for (QLineEdit* swatch : {TxtColorborder, TxtcolorRelleno}) {
        swatch->setReadOnly(true);
        swatch->setFocusPolicy(Qt::NoFocus);
    }
    TxtColorborder->setGeometry(kFieldX, kFirstRow + kRowHeight, 200, 28);
    TxtcolorRelleno->setGeometry(kFieldX, kFirstRow + 2 * kRowHeight, 200, 28);
    Text1->setReadOnly(true);
    Text1->setText(QStringLiteral("Nubo! 1.4 Beta"));
    Text1->setGeometry(kFieldX, kFirstRow + 3 * kRowHeight - 2, 200, 32);
    TxtBorStyle->setGeometry(kFieldX, kFirstRow + 4 * kRowHeight, 56, 28);
    TxtBorWidth->setGeometry(kFieldX, kFirstRow + 5 * kRowHeight, 56, 28);
    for (QLineEdit* number : {TxtBorStyle, TxtBorWidth})
        number->setAlignment(Qt::AlignRight);
}

void Form7::createButtons()
{
    auto button = [this](const char* name, const QString& caption, QRect place) {
        auto* b = platform::namedChild<QPushButton>(this, name, caption);
        b->setGeometry(place);
        return b;
    };
    const int right = kFieldX + 208;
    Command1 = button("Command1", QStringLiteral("..."), {right, kFirstRow + kRowHeight, 40, 28});
    Command2 =
        button("Command2", QStringLiteral("..."), {right, kFirstRow + 2 * kRowHeight, 40, 28});
    Command3 =
        button("Command3", QStringLiteral("..."), {right, kFirstRow + 3 * kRowHeight, 40, 28});
    const int styleY = kFirstRow + 4 * kRowHeight;
    const int weightY = kFirstRow + 5 * kRowHeight;
    Command6 = button("Command6", QStringLiteral("-"), {kFieldX + 64, styleY, 32, 28});
    Command5 = button("Command5", QStringLiteral("+"), {kFieldX + 100, styleY, 32, 28});
    Command7 = button("Command7", QStringLiteral("-"), {kFieldX + 64, weightY, 32, 28});
    Command8 = button("Command8", QStringLiteral("+"), {kFieldX + 100, weightY, 32, 28});
    Command4 = button("Command4", QStringLiteral("&Aceptar"), {kLabelX, 332, 110, 32});
    Command4->setToolTip(QStringLiteral("Aceptar los cambios"));
    Command4->setDefault(true);

    ChkActivate = new QCheckBox(QStringLiteral("Activar"), this);
    ChkActivate->setObjectName(QStringLiteral("ChkActivate"));
    ChkActivate->setToolTip(QStringLiteral(
        "Si se activa, la futura hoja de Excel se creara con la configuracion seleccionada"));
    ChkActivate->setGeometry(kFieldX, 334, 120, 28);

    PicAceptar = new QLabel(this);
    PicAceptar->setObjectName(QStringLiteral("PicAceptar"));
    PicAceptar->setToolTip(QStringLiteral("Acepta la configuracion actual"));
    PicAceptar->setGeometry(360, 312, 56, 56);
    PicAceptar->setScaledContents(true);
    PicAceptar->setCursor(Qt::PointingHandCursor);
    PicAceptar->installEventFilter(this);
    m_hover.add(PicAceptar, QStringLiteral("\\bitmap\\form7bot1off.jpg"),
                QStringLiteral("\\bitmap\\form7bot1on.jpg"));
}

void Form7::connectControls()
{
    connect(TxtNameXls, &QLineEdit::textChanged, this, [this](const QString& name) {
        if (!m_refreshing)
            m_deps.settings.sheetName = name;
    });
    connect(Command1, &QPushButton::clicked, this,
            [this] { chooseColor(&SheetStyle::borderColor); });
    connect(Command2, &QPushButton::clicked, this, [this] { chooseColor(&SheetStyle::fillColor); });
    connect(Command3, &QPushButton::clicked, this, &Form7::chooseFont);
    const auto stepper = [this](QPushButton* button, QLineEdit* field,
                                const SheetNumberField& rules, int step) {
        connect(button, &QPushButton::clicked, this,
                [field, &rules, step] { field->setText(rules.stepped(field->text(), step)); });
    };
    stepper(Command5, TxtBorStyle, kLineStyleField, +1);
    stepper(Command6, TxtBorStyle, kLineStyleField, -1);
    stepper(Command7, TxtBorWidth, kWeightField, -1);
    stepper(Command8, TxtBorWidth, kWeightField, +1);
    connect(TxtBorStyle, &QLineEdit::textChanged, this,
            [this] { numberChanged(TxtBorStyle, kLineStyleField, &SheetStyle::lineStyle); });
    connect(TxtBorWidth, &QLineEdit::textChanged, this,
            [this] { numberChanged(TxtBorWidth, kWeightField, &SheetStyle::weight); });
    connect(Command4, &QPushButton::clicked, this, &Form7::accept);

    // The box shows the sheet-formatting option, as the options window's box does, so the two
    // always agree. A click sets the record only: the options window's "&ACEPTAR CAMBIOS" is
    // what writes it to the options file.
    ChkActivate->setChecked(m_deps.options.isOn(core::Option::ConfigExcel));
    connect(&m_deps.options, &core::Options::changed, ChkActivate,
            [this](core::Option option, int value) {
                if (option == core::Option::ConfigExcel)
                    ChkActivate->setChecked(value != 0);
            });
    connect(ChkActivate, &QCheckBox::clicked, this,
            [this](bool on) { m_deps.options.setValue(core::Option::ConfigExcel, on ? 1 : 0); });
}

void Form7::refresh()
{
    const SheetSettings& s = m_deps.settings;
    m_refreshing = true;
    TxtNameXls->setText(s.sheetName);
    setBase(TxtColorborder, s.style.borderColor);
    setBase(TxtcolorRelleno, s.style.fillColor);
    QFont font(s.style.fontName);
    font.setPointSizeF(s.style.fontSize);
    font.setBold(s.style.bold);
    font.setItalic(s.style.italic);
    font.setUnderline(s.style.underline);
    Text1->setFont(font);
    QPalette palette = Text1->palette();
    palette.setColor(QPalette::Text, colorOf(s.style.fontColor));
    Text1->setPalette(palette);
    TxtBorStyle->setText(QString::number(s.style.lineStyle));
    TxtBorWidth->setText(QString::number(s.style.weight));
    m_refreshing = false;
}

// A cancelled dialog changes nothing.
void Form7::chooseColor(quint32 SheetStyle::*color)
{
    const std::optional<quint32> chosen = m_deps.dialogs.chooseColor(m_deps.settings.style.*color);
    if (!chosen)
        return;
    m_deps.settings.style.*color = *chosen;
    refresh();
}

void Form7::chooseFont()
{
    SheetStyle& s = m_deps.settings.style;
    const std::optional<platform::FontChoice> chosen = m_deps.dialogs.chooseFont(
        {s.fontName, s.fontSize, s.bold, s.italic, s.underline, s.fontColor});
    if (!chosen)
        return;
    s.fontName = chosen->name;
    s.fontSize = chosen->pointSize;
    s.bold = chosen->bold;
    s.italic = chosen->italic;
    s.underline = chosen->underline;
    s.fontColor = chosen->color;
    refresh();
}

// The record takes the field's number; a field left empty keeps the record's number.
void Form7::numberChanged(QLineEdit* field, const SheetNumberField& rules, int SheetStyle::*number)
{
    const QString text = rules.checked(field->text());
    if (text != field->text()) {
        field->setText(text); // changes the field again, and so the record
        return;
    }
    if (const std::optional<int> value = SheetNumberField::numberOf(text); value && !m_refreshing)
        m_deps.settings.style.*number = *value;
}

bool Form7::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == PicAceptar && event->type() == QEvent::MouseButtonPress &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        accept();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

// Keeps the settings for the next run and closes the window; a failed write is only logged.
void Form7::accept()
{
    if (!m_deps.store.save(m_deps.settings))
        m_deps.log.AnotarEnLog(
            QStringLiteral("No se ha podido guardar la configuracion de la hoja %1")
                .arg(m_deps.store.path()));
    close();
}

} // namespace nubo::database
