#include "FixturePreview.h"

#include "FixturePreviewParts_p.h"
#include "IOModeFactory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>

class FixturePreview::Private
{
public:
    explicit Private(FixturePreview* preview) : q(preview) {}

    void build();
    void fillIoModes();
    void choose();
    void show();

    FixturePreview* q;
    LXColor color;
    MatchReport::Target target;
    MatchReport report;
    QComboBox* fixture = nullptr;
    QComboBox* ioMode = nullptr;
    QComboBox* resolution = nullptr;
    QCheckBox* match = nullptr;
    lxcolor::LightPair* lights = nullptr;
    lxcolor::EmitterBars* bars = nullptr;
    QLabel* bytes = nullptr;
    QLabel* sentence = nullptr;
};

namespace {

QComboBox* comboBox(const char* name, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(14);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

void select(QComboBox* box, int data)
{
    const QSignalBlocker blocker(box);
    box->setCurrentIndex(box->findData(data));
}

} // namespace

void FixturePreview::Private::build()
{
    fixture = comboBox("fixture", q);
    for (const auto profile : ColorUtils::tonematchProfileIDList(true))
        fixture->addItem(ColorUtils::tonematchProfileIDName(profile), int(profile));
    ioMode = comboBox("ioMode", q);
    resolution = comboBox("resolution", q);
    resolution->setMinimumContentsLength(5);
    resolution->addItem(FixturePreview::tr("8 bit"), 1);
    resolution->addItem(FixturePreview::tr("16 bit"), 2);
    resolution->setAccessibleName(FixturePreview::tr("Resolution"));
    match = new QCheckBox(FixturePreview::tr("Match colours"), q);
    match->setObjectName(QStringLiteral("match"));
    match->setToolTip(FixturePreview::tr("Without, generic RGB colours go to the fixture as they are."));

    lights = new lxcolor::LightPair(q);
    bars = new lxcolor::EmitterBars(q);
    bytes = new QLabel(q);
    bytes->setObjectName(QStringLiteral("dmxBytes"));
    bytes->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    sentence = new QLabel(q);
    sentence->setObjectName(QStringLiteral("sentence"));
    sentence->setWordWrap(true);
    sentence->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    sentence->setMinimumHeight(3 * sentence->fontMetrics().lineSpacing()); // What is above stays in its place.
    sentence->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    auto* second = new QHBoxLayout;
    second->setSpacing(8);
    second->addWidget(ioMode, 3);
    second->addWidget(resolution, 1);
    form->addRow(FixturePreview::tr("&Fixture"), fixture);
    form->addRow(FixturePreview::tr("IO &mode"), second);
    static_cast<QLabel*>(form->labelForField(second))->setBuddy(ioMode);

    auto* footer = new QHBoxLayout;
    footer->addWidget(bytes, 1);
    footer->addWidget(match);

    auto* layout = new QVBoxLayout(q);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addLayout(form);
    layout->addWidget(lights);
    layout->addWidget(bars);
    layout->addLayout(footer);
    layout->addWidget(sentence);
    layout->addStretch(1);

    for (QComboBox* box : {fixture, ioMode, resolution})
        connect(box, QOverload<int>::of(&QComboBox::activated), q, [this] { choose(); });
    connect(match, &QCheckBox::toggled, q, [this] { choose(); });
}

void FixturePreview::Private::fillIoModes()
{
    const QSignalBlocker blocker(ioMode);
    ioMode->clear();
    for (const auto mode : ColorUtils::ioModesForTonematchProfileID(target.profile))
        ioMode->addItem(IOModeFactory::instance()->nameForIOModeID(mode), int(mode));
}

void FixturePreview::Private::choose()
{
    MatchReport::Target chosen = target;
    chosen.profile = static_cast<ColorUtils::TonematchProfileID>(fixture->currentData().toInt());
    chosen.ioMode = chosen.profile == target.profile ? static_cast<ColorUtils::IOModeID>(ioMode->currentData().toInt())
                                                     : ColorUtils::defaultIOModeIDForTonematchProfileID(chosen.profile);
    chosen.resolution = resolution->currentData().toInt();
    chosen.allowRgbPassThrough = !match->isChecked();
    q->setTarget(chosen);
}

void FixturePreview::Private::show()
{
    report = MatchReport::make(color, target);
    lights->setReport(report);
    bars->setReport(report);
    QStringList numbers;
    for (const unsigned char byte : qAsConst(report.bytes))
        numbers << QString::number(byte);
    bytes->setText(QStringLiteral("DMX  <b>%1</b>").arg(numbers.join(QStringLiteral(" &nbsp;"))));
    sentence->setText(report.sentence());
}

FixturePreview::FixturePreview(QWidget* parent) : QWidget(parent), d(std::make_unique<Private>(this))
{
    d->build();
    MatchReport::Target target;
    target.allowRgbPassThrough = false;
    setTarget(target);
}

FixturePreview::~FixturePreview() = default;

LXColor FixturePreview::color() const { return d->color; }

MatchReport::Target FixturePreview::target() const { return d->target; }

const MatchReport& FixturePreview::report() const { return d->report; }

void FixturePreview::setColor(const LXColor& color)
{
    d->color = color;
    d->show();
}

void FixturePreview::setTarget(const MatchReport::Target& target)
{
    d->target = target;
    if (d->fixture->findData(int(target.profile)) < 0)
        d->target.profile = ColorUtils::ProfileGenericRGB;
    d->fillIoModes();
    if (d->ioMode->findData(int(target.ioMode)) < 0)
        d->target.ioMode = ColorUtils::defaultIOModeIDForTonematchProfileID(d->target.profile);
    if (target.resolution != 2)
        d->target.resolution = 1;
    select(d->fixture, d->target.profile);
    select(d->ioMode, d->target.ioMode);
    select(d->resolution, d->target.resolution);
    const QSignalBlocker blocker(d->match);
    d->match->setChecked(!target.allowRgbPassThrough);
    d->show();
    Q_EMIT targetChanged();
}
