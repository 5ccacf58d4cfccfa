#include "ColorUtils.h"
#include "Comparison.h"
#include "CurveFactory.h"
#include "LXColor.h"
#include "Support.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"
#include "reference/Color.h"
#include "reference/Matching.h"

#include <functional>
#include <numeric>

using reference::ProfileId;

// The library against the plain model, bit for bit, on seeded input. A failure tells how the colour came about.

namespace {

template <class... T>
QVector<double> numbers(T... values)
{
    return {static_cast<double>(values)...};
}

/// Everything a colour holds, read without conversion.
template <class C>
QVector<double> stored(const C& c)
{
    const bool invalid = c.spec() == LXColor::Invalid;
    QVector<double> levels;
    c.getNChannelF(&levels, nullptr, nullptr);
    levels << numbers(c.spec(), c.getChannelConfiguration(), c.getTonematchProfileID(),
                      static_cast<quint32>(c.getNChannelRenderType()));
    if (invalid || c.spec() == LXColor::Rgb)
        levels << c.redF() << c.greenF() << c.blueF();
    if (invalid || c.spec() == LXColor::Hsv)
        levels << c.hueF() << c.saturationF() << c.valueF();
    if (invalid || c.spec() == LXColor::Yxy)
        levels << c.getY() << c.getx() << c.gety();
    return levels;
}

/// Every reading of the RGB and HSV faces.
template <class C>
QVector<double> readings(const C& c)
{
    int h;
    uint s, v, a;
    c.getHsv16(&h, &s, &v, &a);
    return numbers(c.red8(), c.green8(), c.blue8(), c.alpha8(), c.red16(), c.green16(), c.blue16(), c.alpha16(),
                   c.redF(), c.greenF(), c.blueF(), c.alphaF(), c.rgb(), c.rgba(), c.getQColor(true).rgba(),
                   c.getQColor(false).rgba(), h, s, v, a, c.hue8(), c.hue16(), c.hueF(), c.saturation8(),
                   c.saturation16(), c.saturationF(), c.value8(), c.value16(), c.valueF(), c.isBlack(),
                   c.allNChannelsBlack());
}

/// A colour of the library and one of the model, led through the same steps.
struct Pair
{
    LXColor library;
    reference::Color model;
    QStringList* story = nullptr; // what was done, when somebody wants to know

    template <class Step, class... Args>
    void apply(const char* name, Step step, const Args&... args)
    {
        if (story)
            *story << name + ('(' + QStringList{printed(args)...}.join(", ") + ')');
        step(library, args...);
        step(model, args...);
    }
    template <class Read>
    QString difference(const char* name, Read read) const
    {
        const auto got = read(library);
        const auto expected = read(model);
        return sameBits(got, expected) ? QString()
                                       : QString("%1: got %2, expected %3").arg(name, printed(got), printed(expected));
    }
    QString difference() const
    {
        const QStringList warned = Messages::takeTexts();
        const QStringList expected = std::exchange(reference::warnings(), {});
        if (warned != expected)
            return "warnings: got " + printed(warned) + ", expected " + printed(expected);
        return difference("stored", [](const auto& c) { return stored(c); });
    }
};

#define MEMBER(name) #name, [](auto& c, const auto&... args) { c.name(args...); }
#define MADE_BY(name) #name, [](auto& c, const auto&... args) { c = std::decay_t<decltype(c)>::name(args...); }
#define CONVERTED(name) #name, [](auto& c, const auto&... args) { c = c.name(args...); }

/// Neighbouring doubles of \a v, or \a v itself.
double nudged(Dice& dice, double v)
{
    for (int steps = dice.chance(2) ? dice.number(0, 3) : 0; steps > 0; --steps)
        v = std::nextafter(v, dice.number(0, 1));
    return v;
}

/// A chromaticity: of a mix, on a line where the search for levels is ill-conditioned, at a corner, near those, or
/// anywhere.
QPointF chromaticity(Dice& dice, ProfileId id, ColorUtils::ChannelConfiguration cc)
{
    const reference::Record& record = reference::record(id, cc);
    const auto ofLevels = [&](const QVector<double>& mixed) {
        const reference::Yxy light = reference::mix(mixed, record, 0);
        return QPointF(light.x, light.y);
    };
    const auto emitter = [&] { return dice.number(0, record.emitters() - 1); };
    const auto ofEmitter = [&] {
        QVector<double> alone(record.emitters(), 0.0);
        alone[emitter()] = 1.0;
        return ofLevels(alone);
    };
    const auto one = emitter();
    const QPointF a = ofEmitter();
    const QPointF b = ofEmitter();
    QPointF xy(dice.anything(), dice.anything());
    QVector<double> levels(record.emitters());
    for (double& level : levels)
        level = dice.chance(3) ? dice.number(0, 1) : dice.ratio();
    // clang-format off
    switch (dice.number(0, 9)) {
    case 0: return xy;
    case 1: xy = a; break;
    case 2: xy = a + dice.ratio() * (b - a); break; // in line with two emitters
    case 3: xy = a + (dice.ratio() - 0.5) * (a - b); break;
    case 4: xy = QPointF(a.x(), a.x() * record.Y[one] / record.X[one]); break; // y/x of an emitter
    case 5: xy.setY((1 - xy.x()) * record.Y[one] / (record.Y[one] + record.Z[one])); break; // y/z of an emitter
    case 6: xy.setY(1 - xy.x()); break; // no z
    default: xy = ofLevels(levels);
    }
    // clang-format on
    return QPointF(nudged(dice, xy.x()), nudged(dice, xy.y()));
}

template <class T, class Draw>
QVector<T> levelVector(Dice& dice, Draw draw)
{
    QVector<T> v(dice.chance(4) ? dice.number(0, 8) : dice.number(4, 6));
    for (T& level : v)
        level = draw();
    return v;
}

int curveType(Dice& dice) { return dice.number(-1, 3) + (dice.chance(8) ? 4 : 0); }

/// One random change of a colour.
void step(Dice& dice, Pair& pair)
{
    const auto id = dice.profile();
    const auto cc = dice.configuration();
    const QPointF xy = chromaticity(dice, id, cc);
    const auto ratio = [&] { return dice.anything(); };
    const auto hueF = [&] { return dice.chance(8) ? -1.0 : dice.anything(); };
    const auto hue = [&] {
        return dice.chance(8) ? dice.pick({-2, -1, 359, 360, 361, 65535, 65536}) : dice.number(0, 359);
    };
    const auto w8 = [&] { return dice.any8(); };
    const auto w16 = [&] { return dice.any16(); };
    const auto face = [&] { return dice.pick({LXColor::Rgb, LXColor::Hsv, LXColor::Yxy, LXColor::NChannel}); };
    // clang-format off
    switch (dice.number(0, 37)) {
    case 0: return pair.apply(MEMBER(setRgb8), w8(), w8(), w8(), w8(), id);
    case 1: return pair.apply(MEMBER(setRgb16), w16(), w16(), w16(), w16(), id);
    case 2: return pair.apply(MEMBER(setRgbF), ratio(), ratio(), ratio(), ratio(), id);
    case 3: return pair.apply(MADE_BY(fromRgb8), w8(), w8(), w8(), w8(), id);
    case 4: return pair.apply(MADE_BY(fromRgb16), w16(), w16(), w16(), w16(), id);
    case 5: return pair.apply(MADE_BY(fromRgbF), ratio(), ratio(), ratio(), ratio(), id);
    case 6: return pair.apply(MEMBER(setHsv8), hue(), w8(), w8(), w8(), id);
    case 7: return pair.apply(MEMBER(setHsv16), hue(), w16(), w16(), w16(), id);
    case 8: return pair.apply(MEMBER(setHsvF), hueF(), ratio(), ratio(), ratio(), id);
    case 9: return pair.apply(MADE_BY(fromHsv8), hue(), w8(), w8(), w8(), id);
    case 10: return pair.apply(MADE_BY(fromHsv16), hue(), w16(), w16(), w16(), id);
    case 11: return pair.apply(MADE_BY(fromHsvF), hueF(), ratio(), ratio(), ratio(), id);
    case 12: return pair.apply(MEMBER(setYxy8), ratio(), xy.x(), xy.y(), w8(), id);
    case 13: return pair.apply(MEMBER(setYxy16), ratio(), xy.x(), xy.y(), w16(), id);
    case 14: return pair.apply(MEMBER(setYxyF), ratio(), xy.x(), xy.y(), ratio(), id);
    case 15: return pair.apply(MADE_BY(fromxyY), xy.x(), xy.y(), ratio(), id);
    case 16: return pair.apply(MEMBER(setNChannel8), levelVector<int>(dice, w8), cc, id);
    case 17: return pair.apply(MEMBER(setNChannel16), levelVector<uint>(dice, w16), cc, id);
    case 18: return pair.apply(MEMBER(setNChannelF), levelVector<double>(dice, ratio), cc, id);
    case 19: return pair.apply(MEMBER(setRed8), w8());
    case 20: return pair.apply(MEMBER(setGreen8), w8());
    case 21: return pair.apply(MEMBER(setBlue8), w8());
    case 22: return pair.apply(MEMBER(setRed16), w16());
    case 23: return pair.apply(MEMBER(setGreen16), w16());
    case 24: return pair.apply(MEMBER(setBlue16), w16());
    case 25: return pair.apply(MEMBER(setRedF), ratio());
    case 26: return pair.apply(MEMBER(setGreenF), ratio());
    case 27: return pair.apply(MEMBER(setBlueF), ratio());
    case 28: return pair.apply(MEMBER(setY), ratio());
    case 29: return pair.apply(MEMBER(setx), ratio());
    case 30: return pair.apply(MEMBER(sety), ratio());
    case 31: return pair.apply(MEMBER(setAlpha8), w8());
    case 32: return pair.apply(MEMBER(setAlpha16), w16());
    case 33: return pair.apply(MEMBER(setAlphaF), ratio());
    case 34: return pair.apply(MEMBER(setTonematchProfileID), id);
    case 35: return pair.apply(CONVERTED(toYxy), cc, id, curveType(dice));
    case 36: return pair.apply(CONVERTED(toNChannel16), cc, id, curveType(dice));
    default: return pair.apply(CONVERTED(convertTo), face(), cc, id);
    }
    // clang-format on
}

/// A random colour, made in some steps; with a render type of its own when it is N-channel.
QString make(Dice& dice, Pair& pair)
{
    for (int i = dice.number(1, 3); i > 0; --i) {
        step(dice, pair);
        if (dice.chance(pair.library.spec() == LXColor::NChannel ? 1 : 8)) // it shares its word with red and hue
            pair.apply(MEMBER(setNChannelRenderType),
                       dice.pick({LXColor::NChannelDirect, LXColor::NChannelColorimetric}));
        const QString difference = pair.difference();
        if (!difference.isEmpty())
            return difference;
    }
    return QString();
}

/// Runs a case on many draws of one seed; the case that fails is run again to tell its story. LXCOLOR_TEST_REQUESTS
/// raises the number of draws for a long run.
void repeat(int times, quint64 seed, const std::function<QString(Dice&, QStringList*)>& run)
{
    times = qMax(times, qEnvironmentVariableIntValue("LXCOLOR_TEST_REQUESTS"));
    Dice dice(seed);
    for (int i = 0; i < times; ++i) {
        const Dice before = dice;
        if (run(dice, nullptr).isEmpty())
            continue;
        Dice again = before;
        QStringList story;
        const QString difference = run(again, &story);
        QFAIL(qPrintable(QString("draw %1 of seed %2: %3\n   %4").arg(i).arg(seed).arg(story.join(", "), difference)));
    }
}

QString compared(const QString& name, const QVector<double>& got, const QVector<double>& expected)
{
    return sameBits(got, expected) ? QString() : name + ": got " + printed(got) + ", expected " + printed(expected);
}

/// Adds to the story, when there is one, what \a text() says.
template <class Text>
void tell(QStringList* story, Text text)
{
    if (story)
        *story << text();
}

QVector<double> solved(reference::Yxy light, ColorUtils::ChannelConfiguration cc, ProfileId id, bool clamp)
{
    double in[] = {light.Y, light.x, light.y};
    QVector<double> levels(6, -7.0); // more than any configuration has: the rest must stay
    ColorUtils::convertYxyToNChannel(in, levels.data(), cc, id, clamp);
    return levels;
}

QString compareSolutions(Dice& dice, QStringList* story)
{
    const auto id = dice.profile();
    const auto cc = dice.configuration();
    const bool clamp = !dice.chance(4);
    const QPointF xy = chromaticity(dice, id, cc);
    const reference::Yxy light{dice.anything(), xy.x(), xy.y()};
    tell(story, [&] {
        return "profile, configuration, clamp, Y, x, y: " + printed(numbers(id, cc, clamp, light.Y, light.x, light.y));
    });
    QVector<double> expected = reference::solve(light, cc, id, clamp);
    while (expected.size() < 6)
        expected << -7.0;
    QString difference = compared("levels", solved(light, cc, id, clamp), expected);

    QVector<double> got(3, -7.0), nearest(3, -7.0);
    got[0] =
        TristimulusFactory::getInstance()->getTristimulus(id, cc)->closestPtOnGamut(light.x, light.y, got[1], got[2]);
    nearest[0] = reference::closestPtOnGamut(reference::record(id, cc), light.x, light.y, nearest[1], nearest[2]);
    return difference + compared("closest", got, nearest);
}

/// One function of 16 bits on all of them, and its array form.
template <class Out>
QString compareAll(const char* name, Out (*library)(ushort), void (*array)(ushort*, Out*, int), Out (*model)(quint16))
{
    QVector<ushort> all(65536);
    std::iota(all.begin(), all.end(), ushort(0));
    QVector<Out> out(all.size());
    if (array)
        array(all.data(), out.data(), all.size());
    for (ushort v : all) {
        if (!sameBits(library(v), model(v)) || (array && out[v] != model(v)))
            return QString("%1 of %2: got %3, expected %4; ").arg(name).arg(v).arg(library(v)).arg(model(v));
    }
    return QString();
}

} // namespace

class TestReference : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void scalarFunctions()
    {
        using CU = ColorUtils;
        using Ratio = void (*)(ushort*, double*, int);
        const QString differences =
            compareAll("square law", CU::dmx16ToSquareLawDimRatio, Ratio(nullptr), reference::squareLawRatio) +
            compareAll("tungsten", CU::dmx16ToTungstenDimRatio, Ratio(nullptr), reference::tungstenRatio) +
            compareAll("linear 8", CU::pwm16ToMNormDLinearRes8, CU::pwmToMNormDLinearRes8, reference::linearRes8) +
            compareAll("normal 8", CU::pwm16ToMNormDNormRes8, CU::pwmToMNormDNormRes8, reference::normalRes8) +
            compareAll("normal 16", CU::pwm16ToMNormDNormRes16, CU::pwmToMNormDNormRes16, reference::normalRes16) +
            compareAll("tungsten 8", CU::pwm16ToMNormDTungstenRes8, CU::pwmToMNormDTungstenRes8,
                       reference::tungstenRes8) +
            compareAll("tungsten 16", CU::pwm16ToMNormDTungstenRes16, CU::pwmToMNormDTungstenRes16,
                       reference::tungstenRes16) +
            compareAll("lut16BitToBit", CU::lut16BitToBit, static_cast<void (*)(ushort*, uchar*, int)>(nullptr),
                       reference::lut16BitToBit);
        QCOMPARE(differences, QString());
        for (int type = -1; type <= 3; ++type) {
            for (int v = 0; v < 65536; ++v) {
                uchar byte = 0;
                ushort word = 0;
                CurveFactory::Instance()->getCurve(type)->applyCurve(v & 255, &byte);
                CurveFactory::Instance()->getCurve(type)->applyCurve(v, &word);
                if (byte != reference::softwareCurve8(type, v & 255) || word != reference::softwareCurve16(type, v))
                    QFAIL(qPrintable(QString("curve %1 at %2: %3, %4").arg(type).arg(v).arg(byte).arg(word)));
            }
        }
    }

    void smallSystems()
    {
        repeat(100000, 1, [](Dice& dice, QStringList* story) {
            const auto coefficient = [&] { return (dice.anything() - 0.5) * std::ldexp(1.0, dice.number(-20, 20)); };
            const double m[2][3] = {{coefficient(), coefficient(), coefficient()},
                                    {coefficient(), coefficient(), coefficient()}};
            tell(story, [&] { return printed(QVector<double>{m[0][0], m[0][1], m[0][2], m[1][0], m[1][1], m[1][2]}); });
            QVector<double> got(2), expected(2);
            ColorUtils::gaussianEliminationTwoByThree(m, got[0], got[1]);
            reference::eliminate(m, expected[0], expected[1]);
            const auto f = [&](int i, int j) { return static_cast<float>(m[i][j]); };
            const float max = dice.pick({255.0f, 65535.0f});
            const QPointF v(m[0][0], m[0][1]), w = dice.chance(8) ? v : QPointF(m[0][2], m[1][0]), p(m[1][1], m[1][2]);
            QPointF gotPoint, expectedPoint;
            got << ColorUtils::quadraticSolver(f(0, 0), f(0, 1), f(0, 2), f(1, 0), max)
                << ColorUtils::minDistance(v, w, p, gotPoint) << gotPoint.x() << gotPoint.y();
            expected << reference::quadraticSolver(f(0, 0), f(0, 1), f(0, 2), f(1, 0), max)
                     << reference::minDistance(v, w, p, expectedPoint) << expectedPoint.x() << expectedPoint.y();
            double gotYxy[3];
            ColorUtils::convertXYZtoYxy(m[0], gotYxy);
            const reference::Yxy light = reference::fromXYZ(m[0][0], m[0][1], m[0][2]);
            if (!std::isnan(m[0][0] + m[0][1] + m[0][2])) {
                got << gotYxy[0] << gotYxy[1] << gotYxy[2];
                expected << light.Y << light.x << light.y;
            }
            const std::vector<double> ratios{dice.anything(), dice.anything(), dice.anything()};
            got << ColorUtils::validateDimmingRatio(QVector<double>(ratios.begin(), ratios.end()));
            expected << reference::validateDimmingRatio(ratios);
            return compared("elimination, root, distance, nearest, Yxy, validity", got, expected);
        });
    }

    void levelArrays()
    {
        repeat(50000, 2, [](Dice& dice, QStringList* story) {
            QVector<double> levels(dice.number(0, 7));
            for (double& level : levels)
                level = dice.anything();
            const int resolution = dice.number(-1, 3);
            const int type = dice.number(-1, 7);
            const int mode = dice.pick({0, 1, 2, 3, 3, 3, 4});
            tell(story, [&] {
                return "resolution, curve, mode, levels: " + printed(numbers(resolution, type, mode) + levels);
            });
            const uchar untouched = 0xa5;
            QVector<uchar> bytes(20, untouched);
            ColorUtils::applyCurve(levels.size(), resolution, levels.data(), bytes.data(), type, mode);
            QVector<quint8> expectedBytes = reference::applyCurve(resolution, levels, type, mode);
            while (expectedBytes.size() < bytes.size())
                expectedBytes << untouched;
            QVector<ushort> words(levels.size()), pwm(levels.size());
            ColorUtils::applyCurve16(levels.size(), levels.data(), words.data(), type, mode);
            ColorUtils::nChannelFToPWM(levels.data(), pwm.data(), levels.size());
            QVector<ushort> expectedPwm;
            for (double level : levels)
                expectedPwm << reference::toPwm(level);
            if (bytes != expectedBytes)
                return "bytes: got " + printed(bytes) + ", expected " + printed(expectedBytes);
            if (words != reference::applyCurve16(levels, type, mode))
                return "words: got " + printed(words) + ", expected " +
                       printed(reference::applyCurve16(levels, type, mode));
            return pwm == expectedPwm ? QString() : "pwm: got " + printed(pwm) + ", expected " + printed(expectedPwm);
        });
    }

    void matching() { repeat(300000, 3, compareSolutions); }

    // Emitter vectors are handed out by reference; who changes one must find the change in the next conversion.
    void rewrittenEmitters()
    {
        const auto id = ColorUtils::ProfileFlareFlashQVS;
        const auto cc = ColorUtils::ConfigRGBAW;
        Tristimulus* library = TristimulusFactory::getInstance()->getTristimulus(id, cc);
        reference::Record& model = reference::record(id, cc);
        const reference::Record original = model;
        const auto copy = [&] {
            library->getX() = model.X;
            library->getY() = model.Y;
            library->getZ() = model.Z;
        };
        Dice outer(4);
        for (int round = 0; round < 60; ++round) {
            const int emitters = outer.number(3, 6);
            for (QVector<double>* values : {&model.X, &model.Y, &model.Z}) {
                values->resize(emitters);
                for (double& value : *values)
                    value = std::abs(1000 * outer.ratio());
            }
            if (round % 3 == 0) // two emitters alike: singular systems
                model.X[1] = model.X[0], model.Y[1] = model.Y[0], model.Z[1] = model.Z[0];
            copy();
            if (round % 4 != 0) { // otherwise the gamut is still the old one
                model.calculatePolygon();
                library->calculatePolygon();
            }
            repeat(400, outer.bits(), [&](Dice& dice, QStringList* story) {
                tell(story, [&] {
                    return "emitters X " + printed(model.X) + " Y " + printed(model.Y) + " Z " + printed(model.Z);
                });
                return compareSolutions(dice, story);
            });
            if (QTest::currentTestFailed())
                break;
        }
        model = original;
        copy();
        library->calculatePolygon();
    }

    void colours()
    {
        repeat(80000, 5, [](Dice& dice, QStringList* story) {
            Pair pair{{}, {}, story};
            Pair other{{}, {}, story};
            QString difference = make(dice, pair);
            difference += pair.difference("readings", [](const auto& c) { return readings(c); });
            const auto cc = static_cast<ColorUtils::ChannelConfiguration>(dice.configuration());
            const auto id = dice.profile();
            const int curve = curveType(dice);
            tell(story, [&] { return "configuration, profile, curve: " + printed(numbers(cc, id, curve)); });
            difference += pair.difference("toYxy", [=](const auto& c) { return stored(c.toYxy(cc, id, curve)); });
            difference +=
                pair.difference("toNChannel16", [=](const auto& c) { return stored(c.toNChannel16(cc, id, curve)); });
            difference += pair.difference("toRgb16", [=](const auto& c) { return stored(c.toRgb16(false)); });
            difference += pair.difference("toHsv16", [=](const auto& c) { return stored(c.toHsv16()); });
            difference += pair.difference("light", [](const auto& c) {
                return QVector<double>{c.getY(), c.getx(), c.gety()};
            });
            for (int spec = -1; spec <= 5; ++spec)
                difference += pair.difference("convertTo", [=](const auto& c) {
                    return stored(c.convertTo(static_cast<LXColor::Spec>(spec), cc, id));
                });
            // Equality with itself, with a neighbour one step away, and with the neighbour brought back.
            other.library = pair.library;
            other.model = pair.model;
            if (dice.chance(2))
                step(dice, other);
            if ((pair.library == other.library) != (pair.model == other.model) ||
                (pair.library != other.library) == (pair.model == other.model))
                difference += "equality";
            return difference + other.difference();
        });
    }

    void texts()
    {
        const QStringList names = QColor::colorNames();
        repeat(60000, 6, [&](Dice& dice, QStringList* story) {
            Pair pair{{}, {}, story};
            QString difference = make(dice, pair);
            difference += pair.difference("aName", [](const auto& c) { return c.aName(); });
            difference += pair.difference("name", [](const auto& c) { return c.name(); });
            difference += pair.difference("name8", [](const auto& c) { return c.name8(); });
            difference += pair.difference("nameFull8", [](const auto& c) { return c.nameFull8(); });
            if (!difference.isEmpty())
                return difference;
            // Texts: written by a colour, hexadecimal of any length, a name; then perhaps damaged.
            QString text = pair.library.aName();
            if (dice.chance(3)) {
                text = dice.chance(2) ? "#" : QString("aRgb;%1;%2;#").arg(dice.configuration()).arg(dice.profile());
                for (int i = dice.chance(3) ? dice.number(0, 20) : dice.pick({6, 8, 12, 16}); i > 0; --i)
                    text += dice.pick({'0', '1', '8', '9', 'a', 'F', 'c', 'E', 'b', 'D', 'f', '7'});
            } else if (dice.chance(6)) {
                text = names[dice.number(0, names.size() - 1)];
            }
            for (int damage = dice.chance(2) ? dice.number(1, 3) : 0; damage > 0 && !text.isEmpty(); --damage) {
                const int at = dice.number(0, text.size() - 1);
                const QChar c(
                    dice.pick<ushort>({';', '#', '-', '.', 'e', 'g', '0', '9', ' ', 'R', 0xe9, 0x100, 0x20ac}));
                switch (dice.number(0, 3)) {
                case 0:
                    text.remove(at, 1);
                    break;
                case 1:
                    text.insert(at, c);
                    break;
                case 2:
                    text.truncate(at);
                    break;
                default:
                    text[at] = c;
                }
            }
            pair.apply(MEMBER(setNamedColor), text);
            return pair.difference();
        });
    }

    void output()
    {
        repeat(200000, 7, [](Dice& dice, QStringList* story) {
            Pair pair{{}, {}, story};
            QString difference = make(dice, pair);
            const bool allow = dice.chance(2);
            const bool clamp = !dice.chance(4);
            const int count = dice.number(-1, 8);
            const int resolution = dice.number(-1, 3);
            const int mode = dice.number(-1, 10);
            const int direct = dice.number(-1, 7);
            const int onboard = dice.number(-1, 7);
            const ProfileId target = dice.chance(3) ? pair.library.getTonematchProfileID() : dice.profile();
            tell(story, [&] {
                return "target, mode, count, resolution, curves, pass through, clamp: " +
                       printed(numbers(target, mode, count, resolution, direct, onboard, allow, clamp));
            });
            bool converted = false;
            bool expectedConverted = false;
            const QScopedArrayPointer<double> levels(
                ColorUtils::convertLXColorToNChannelF(converted, pair.library, allow, count, target, mode, clamp));
            difference +=
                compared("levels", QVector<double>(levels.data(), levels.data() + qMax(0, count)),
                         reference::outputLevels(expectedConverted, pair.model, allow, count, target, mode, clamp));
            if (converted != expectedConverted)
                difference += "converted flag";
            const auto got =
                ColorUtils::updateBuffer(direct, onboard, pair.library, allow, count, resolution, mode, target);
            const auto expected =
                reference::updateBuffer(direct, onboard, pair.model, allow, count, resolution, mode, target);
            if (got != expected)
                difference += "bytes: got " + printed(got) + ", expected " + printed(expected);
            return difference;
        });
    }

    void compositing()
    {
        repeat(60000, 8, [](Dice& dice, QStringList* story) {
            Pair below{{}, {}, story};
            Pair above{{}, {}, story};
            QString difference = make(dice, below);
            tell(story, [&] { return QString("under"); });
            difference += make(dice, above);
            if (dice.chance(3)) // of one kind, so that no conversion comes first
                above = below;
            above.apply(MEMBER(setAlphaF), dice.ratio());
            ColorUtils::updateColor(below.library, above.library);
            reference::updateColor(below.model, above.model);
            return difference + below.difference();
        });
    }
};

QTEST_GUILESS_MAIN(TestReference)

#include "tst_reference.moc"
