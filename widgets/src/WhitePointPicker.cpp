#include "WhitePointPicker.h"

#include "CCTUtils.h"
#include "WhitePoint.h"
#include "WhitePointPlot_p.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

class WhitePointPicker::Private
{
public:
    explicit Private(WhitePointPicker* picker) : q(picker) {}

    void build();
    QWidget* field(QGridLayout* grid, int column, const QString& name, QWidget* editor) const;
    void moveTo(int cct, int tint);
    void show();
    QString gamutSentence() const;

    WhitePointPicker* q;
    double intensity = 1.0;
    lxcolor::WhitePointPlot* plot = nullptr;
    QSpinBox* cct = nullptr;
    QDoubleSpinBox* tint = nullptr;
    QDoubleSpinBox* percent = nullptr;
    QToolButton* zoom = nullptr;
    QLabel* numbers = nullptr;
    QLabel* gamut = nullptr;
};

namespace {

double percentOf(int tint) { return 100.0 * tint / CCTUtils::getMaxTint(); }

int tintOf(double percent) { return qRound(percent / 100.0 * CCTUtils::getMaxTint()); }

/// Text beside numbers, a little quieter than they are.
QLabel* quietLabel(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setForegroundRole(QPalette::WindowText);
    return label;
}

} // namespace

QWidget* WhitePointPicker::Private::field(QGridLayout* grid, int column, const QString& name, QWidget* editor) const
{
    auto* label = quietLabel(name, q);
    label->setBuddy(editor);
    grid->addWidget(label, 0, column);
    grid->addWidget(editor, 1, column);
    grid->setColumnStretch(column, 1);
    return editor;
}

void WhitePointPicker::Private::build()
{
    plot = new lxcolor::WhitePointPlot(q);
    plot->setAccessibleName(WhitePointPicker::tr("White point on the chromaticity diagram"));

    cct = new QSpinBox(q);
    cct->setObjectName(QStringLiteral("cct"));
    cct->setRange(CCTUtils::getMinCCT(), CCTUtils::getMaxCCT());
    cct->setSingleStep(50);
    cct->setSuffix(QStringLiteral(" K"));
    cct->setKeyboardTracking(false);
    tint = new QDoubleSpinBox(q);
    tint->setObjectName(QStringLiteral("tint"));
    tint->setRange(-100.0, 100.0);
    tint->setDecimals(1);
    tint->setSuffix(QStringLiteral(" %"));
    tint->setKeyboardTracking(false);
    tint->setToolTip(WhitePointPicker::tr("Towards magenta below 0, towards green above"));
    percent = new QDoubleSpinBox(q);
    percent->setObjectName(QStringLiteral("intensity"));
    percent->setRange(0.0, 100.0);
    percent->setDecimals(1);
    percent->setSuffix(QStringLiteral(" %"));
    percent->setKeyboardTracking(false);

    zoom = new QToolButton(q);
    zoom->setObjectName(QStringLiteral("zoom"));
    zoom->setText(WhitePointPicker::tr("Whole diagram"));
    zoom->setCheckable(true);
    zoom->setAutoRaise(true);

    numbers = quietLabel(QString(), q);
    numbers->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    gamut = new QLabel(q);
    gamut->setObjectName(QStringLiteral("gamutSentence"));
    gamut->setWordWrap(true);
    gamut->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    gamut->setMinimumHeight(2 * gamut->fontMetrics().lineSpacing()); // The diagram keeps its size.

    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(16);
    fields->setVerticalSpacing(4);
    field(fields, 0, WhitePointPicker::tr("&Colour temperature"), cct);
    field(fields, 1, WhitePointPicker::tr("&Tint"), tint);
    field(fields, 2, WhitePointPicker::tr("&Intensity"), percent);

    auto* below = new QHBoxLayout;
    below->addWidget(numbers, 1);
    below->addWidget(zoom);

    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(plot, 1);
    layout->addLayout(below);
    layout->addLayout(fields);
    layout->addWidget(gamut);

    connect(plot, &lxcolor::WhitePointPlot::moved, q, [this] {
        show();
        Q_EMIT q->whitePointChanged(q->cct(), q->tint());
        Q_EMIT q->colorChanged(q->color());
    });
    connect(cct, QOverload<int>::of(&QSpinBox::valueChanged), q, [this](int value) { moveTo(value, q->tint()); });
    connect(tint, QOverload<double>::of(&QDoubleSpinBox::valueChanged), q,
            [this](double value) { moveTo(q->cct(), tintOf(value)); });
    connect(percent, QOverload<double>::of(&QDoubleSpinBox::valueChanged), q,
            [this](double value) { q->setIntensity(value / 100.0); });
    connect(zoom, &QToolButton::toggled, q, [this](bool isWhole) { plot->setZoomed(!isWhole); });
}

void WhitePointPicker::Private::moveTo(int newCct, int newTint)
{
    const bool isNew = plot->setWhitePoint(newCct, newTint);
    show();
    if (!isNew)
        return;
    Q_EMIT q->whitePointChanged(q->cct(), q->tint());
    Q_EMIT q->colorChanged(q->color());
}

QString WhitePointPicker::Private::gamutSentence() const
{
    const QString fixture = ColorUtils::tonematchProfileIDName(plot->fixture());
    if (!plot->hasGamut())
        return WhitePointPicker::tr("%1 has no gamut.").arg(fixture);
    const FixtureGamut::Place place = plot->place();
    if (place.inside)
        return WhitePointPicker::tr("Inside the gamut of %1.").arg(fixture);
    return WhitePointPicker::tr("Outside the gamut of %1, by %2 u'v'; nearest is %3.")
        .arg(fixture)
        .arg(place.distance, 0, 'f', 3)
        .arg(place.sideInWords());
}

void WhitePointPicker::Private::show()
{
    const QSignalBlocker blockers[] = {QSignalBlocker(cct), QSignalBlocker(tint), QSignalBlocker(percent)};
    cct->setValue(plot->cct());
    tint->setValue(percentOf(plot->tint()));
    percent->setValue(100.0 * intensity);
    const QPointF xy = plot->xy();
    const double duv = WhitePoint::fromxy(xy.x(), xy.y()).duv();
    numbers->setText(QStringLiteral("x %1   y %2   Duv %3")
                         .arg(xy.x(), 0, 'f', 4)
                         .arg(xy.y(), 0, 'f', 4)
                         .arg(qAbs(duv) < 0.00005 ? 0.0 : duv, 0, 'f', 4));
    gamut->setText(gamutSentence());
    plot->setAccessibleDescription(QStringLiteral("%1, %2. %3").arg(cct->text(), tint->text(), gamut->text()));
}

WhitePointPicker::WhitePointPicker(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>(this))
{
    d->build();
    d->show();
}

WhitePointPicker::~WhitePointPicker() = default;

int WhitePointPicker::cct() const { return d->plot->cct(); }

int WhitePointPicker::tint() const { return d->plot->tint(); }

double WhitePointPicker::intensity() const { return d->intensity; }

QPointF WhitePointPicker::xy() const { return d->plot->xy(); }

LXColor WhitePointPicker::color() const
{
    return LXColor::fromxyY(xy().x(), xy().y(), d->intensity, ColorUtils::ProfileGenericRGB);
}

ColorUtils::TonematchProfileID WhitePointPicker::fixture() const { return d->plot->fixture(); }

bool WhitePointPicker::isInGamut() const { return d->plot->hasGamut() && d->plot->place().inside; }

bool WhitePointPicker::isZoomed() const { return d->plot->isZoomed(); }

void WhitePointPicker::setWhitePoint(int cct, int tint) { d->moveTo(cct, tint); }

void WhitePointPicker::setIntensity(double intensity)
{
    const double limited = intensity > 0.0 ? qMin(intensity, 1.0) : 0.0;
    const bool isNew = limited < d->intensity || limited > d->intensity;
    d->intensity = limited;
    d->show();
    if (isNew)
        Q_EMIT colorChanged(color());
}

void WhitePointPicker::setColor(const LXColor& color)
{
    if (!color.isValid() || color.isBlack())
        return;
    double Y = 0.0;
    double x = 0.0;
    double y = 0.0;
    color.toYxy(ColorUtils::ConfigUnknown, ColorUtils::ProfileNone, -1).getYxyF(&Y, &x, &y, nullptr);
    int newCct = 0;
    int newTint = 0;
    const bool hasWhitePoint = CCTUtils::getCCTAndTintFromxy(x, y, newCct, newTint) && CCTUtils::isValidCCT(newCct) &&
                               newTint >= CCTUtils::getMinTint() && newTint <= CCTUtils::getMaxTint();
    if (!hasWhitePoint)
        return;
    setIntensity(Y);
    setWhitePoint(newCct, newTint);
}

void WhitePointPicker::setFixture(ColorUtils::TonematchProfileID fixture)
{
    d->plot->setFixture(ColorUtils::tonematchProfileIDList(true).contains(fixture) ? fixture
                                                                                   : ColorUtils::ProfileGenericRGB);
    d->show();
}

void WhitePointPicker::setZoomed(bool zoomed) { d->zoom->setChecked(!zoomed); }
