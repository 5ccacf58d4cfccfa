#include "TargetOptions.h"

#include "FixtureLookup.h"
#include "SubcommandLine.h"

void addTargetOptions(SubcommandLine& line, Fixtures fixtures)
{
    const QString name = QStringLiteral("NAME|ID");
    const QString fixture = QStringLiteral("fixture");
    if (fixtures == Fixtures::One)
        line.addValue(fixture, name, QStringLiteral("The fixture; needed. lxcolor fixtures lists them."));
    else
        line.addValues(fixture, name,
                       QStringLiteral("A fixture; needed. May be given several times. lxcolor fixtures lists them."));
    addDriveOptions(line);
}

void addDriveOptions(SubcommandLine& line)
{
    const QString name = QStringLiteral("NAME|ID");
    line.addValue(QStringLiteral("io-mode"), name,
                  QStringLiteral("How it is driven; by default its own default mode."));
    line.addChoice(QStringLiteral("bits"), {QStringLiteral("8"), QStringLiteral("16")},
                   QStringLiteral("Bits a channel; 16 gives two bytes, the high one first."));
    line.addValue(QStringLiteral("direct-curve"), name,
                  QStringLiteral("Dimming curve for levels that pass through unchanged: linear (default), normal or "
                                 "tungsten."),
                  QStringLiteral("0"));
    line.addValue(QStringLiteral("onboard-curve"), name,
                  QStringLiteral("The curve built into the fixture, which matched levels are compensated for; by "
                                 "default that of the fixture."));
    line.addFlag(QStringLiteral("allow-rgb-pass-through"),
                 QStringLiteral("In one-to-one modes, send generic RGB colours as they are instead of matching them."));
}

OutputTarget targetOf(const SubcommandLine& line, const QString& fixtureName)
{
    const auto fixture = fixtureNamed(fixtureName);
    const QString ioMode = line.value(QStringLiteral("io-mode"));
    const QString onboardCurve = line.value(QStringLiteral("onboard-curve"));
    OutputTarget target;
    target.fixture = fixture;
    target.ioMode = line.isSet(QStringLiteral("io-mode")) ? ioModeNamed(ioMode, fixture)
                                                          : ColorUtils::defaultIOModeIDForTonematchProfileID(fixture);
    target.channels = channelNames(fixture, outputLayout(fixture, target.ioMode));
    target.bytesPerChannel = line.value(QStringLiteral("bits")) == QLatin1String("16") ? 2 : 1;
    target.directCurve = curveNamed(line.value(QStringLiteral("direct-curve")));
    target.onboardCurve = line.isSet(QStringLiteral("onboard-curve"))
                              ? curveNamed(onboardCurve)
                              : ColorUtils::defaultCurveTypeForTonematchProfileID(fixture);
    target.allowRgbPassThrough = line.isSet(QStringLiteral("allow-rgb-pass-through"));
    return target;
}
