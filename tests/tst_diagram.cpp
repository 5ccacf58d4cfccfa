#include "CCTImageUtils.h"
#include "CCTUtils.h"
#include "ChromaticityDiagram.h"
#include "Comparison.h"
#include "LXColor.h"
#include "MatchReport.h"
#include "Rows.h"
#include "ScreenColor.h"
#include "StandardObserver.h"

#include <QPainter>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

using Diagram = ChromaticityDiagram;
using Plane = ChromaticityDiagram::Plane;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const QPointF kD65(0.31272, 0.32903);

QImage painted(const Diagram& diagram, QSize size = QSize(500, 520), double ratio = 1.0)
{
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    diagram.paint(painter, QRect(QPoint(0, 0), size));
    return image;
}

/// How many pixels differ. Qt does not promise that a text comes out the same to the last pixel each time.
int differingPixels(const QImage& a, const QImage& b)
{
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += a.pixel(x, y) != b.pixel(x, y);
    return count;
}

Diagram withFixtureAndPoint()
{
    Diagram diagram;
    diagram.setTitle(QStringLiteral("Diagram"));
    diagram.addFixture(ColorUtils::ProfileFlareFlashQVS);
    diagram.addPoint({QPointF(0.15, 0.4), QPointF(0.2, 0.41), QStringLiteral("teal")});
    return diagram;
}

double length(QPointF a) { return std::hypot(a.x(), a.y()); }

} // namespace

class TestDiagram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void placesAreThoseOfTheCctPicture()
    {
        Diagram diagram;
        const QRect rect(13, 7, 640, 480);
        const QRect plot = diagram.plotArea(rect);
        const QRectF range = diagram.shownRange();
        const QRectF xyRect(range.left(), range.bottom(), range.width(), -range.height());
        QRandomGenerator random(3);
        for (int i = 0; i < 500; ++i) {
            const QPointF xy(0.8 * random.generateDouble(), 0.85 * random.generateDouble());
            const QPoint pixel = plot.topLeft() + CCTImageUtils::getPointFromxy(xy.x(), xy.y(), xyRect, plot);
            QVERIFY(length(diagram.positionOf(xy, rect) - pixel) < 0.73); // half a pixel each way
        }
        QCOMPARE(diagram.positionOf({range.left(), range.bottom()}, rect), QPointF(plot.topLeft()));
        QCOMPARE(diagram.positionOf({range.right(), range.top()}, rect),
                 QPointF(plot.topLeft() + QPoint(plot.width(), plot.height())));
    }

    void placesComeBack_data()
    {
        const Rows<int, QRectF> row;
        row("xy", int(Plane::CIE1931xy), QRectF());
        row("u'v'", int(Plane::CIE1976uvPrime), QRectF());
        row("part of xy", int(Plane::CIE1931xy), QRectF(0.25, 0.25, 0.2, 0.15));
        row("part of u'v'", int(Plane::CIE1976uvPrime), QRectF(0.15, 0.4, 0.2, 0.2));
    }
    void placesComeBack()
    {
        const auto [plane, range] = fetched<int, QRectF>();
        Diagram diagram;
        diagram.setPlane(static_cast<Plane>(plane));
        diagram.setShownRange(range);
        const QRect rect(-20, 50, 900, 700);
        const QRect plot = diagram.plotArea(rect);
        const double pixel = diagram.shownRange().width() / plot.width();
        for (double x = 0.2; x < 0.5; x += 0.013) {
            for (double y = 0.2; y < 0.5; y += 0.017) {
                const QPointF position = diagram.positionOf({x, y}, rect);
                const QPointF back = diagram.chromaticityAt(position, rect);
                QVERIFY(length(back - QPointF(x, y)) < 0.08 * pixel);
            }
        }
        const double upwards = diagram.positionOf({0.3, 0.35}, rect).y();
        QVERIFY(upwards < diagram.positionOf({0.3, 0.3}, rect).y());
        if (diagram.plane() == Plane::CIE1976uvPrime) { // equal distances there are equal here
            const double a = length(diagram.positionOf({0.3, 0.4}, rect) - diagram.positionOf({0.35, 0.3}, rect));
            const double uv = CCTUtils::getDuvPrimeFromuvPrime(
                CCTUtils::getuPrimeFromxy(0.3, 0.4), CCTUtils::getvPrimeFromxy(0.3, 0.4),
                CCTUtils::getuPrimeFromxy(0.35, 0.3), CCTUtils::getvPrimeFromxy(0.35, 0.3));
            QVERIFY(std::abs(a * pixel - uv) < 0.1 * pixel);
        }
    }

    void plotFillsWhatTheAxesLeave()
    {
        Diagram diagram;
        for (const QRect& rect : {QRect(0, 0, 300, 300), QRect(5, 5, 1200, 300), QRect(-7, 0, 200, 900)}) {
            const QRect plot = diagram.plotArea(rect);
            const QRectF range = diagram.shownRange();
            QVERIFY(rect.contains(plot));
            QVERIFY(std::abs(plot.width() / range.width() - plot.height() / range.height()) < 2.0 / range.height());
        }
        diagram.setElement(Diagram::Axes, false);
        diagram.setShownRange(QRectF(0.2, 0.2, 0.3, 0.3));
        QCOMPARE(diagram.plotArea(QRect(10, 20, 300, 300)), QRect(10, 20, 300, 300));
    }

    void interiorIsColouredWithinTheLocus_data()
    {
        placesComeBack_data();
        QTest::newRow("far out") << int(Plane::CIE1931xy) << QRectF(0.6, 0.6, 0.2, 0.2);
    }
    void interiorIsColouredWithinTheLocus()
    {
        const auto [plane, range] = fetched<int, QRectF>();
        Diagram diagram;
        diagram.setPlane(static_cast<Plane>(plane));
        diagram.setShownRange(range);
        diagram.setElements(Diagram::Interior);
        const QRect rect(0, 0, 500, 520);
        const QImage image = painted(diagram, rect.size());
        const QRect plot = diagram.plotArea(rect);
        int inside = 0;
        for (int y = plot.top() + 2; y < plot.bottom() - 2; y += 5) {
            for (int x = plot.left() + 2; x < plot.right() - 2; x += 5) {
                const QPointF at = diagram.chromaticityAt(QPointF(x + 0.5, y + 0.5), rect);
                // Away from the soft edge.
                bool real[4];
                int i = 0;
                for (const QPointF& corner : {QPointF(-1, -1), QPointF(2, -1), QPointF(-1, 2), QPointF(2, 2)})
                    real[i++] = Diagram::isReal(diagram.chromaticityAt(QPointF(x, y) + corner, rect));
                const QColor color = image.pixelColor(x, y);
                const QByteArray place = QByteArray::number(at.x()) + ", " + QByteArray::number(at.y());
                if (real[0] && real[1] && real[2] && real[3]) {
                    ++inside;
                    QVERIFY2(color.alpha() == 255 && difference(color, Diagram::displayColor(at)) <= 8, place);
                } else if (!real[0] && !real[1] && !real[2] && !real[3] && !Diagram::isReal(at)) {
                    QVERIFY2(color.alpha() == 0, place);
                }
            }
        }
        QCOMPARE(inside > 0, range != QRectF(0.6, 0.6, 0.2, 0.2));
    }

    void interiorFollowsTheSettings()
    {
        const Diagram::Elements withoutText = Diagram::Background | Diagram::Interior | Diagram::SpectralLocus;
        Diagram kept;
        kept.setElements(withoutText);
        const auto fresh = [&](QSize size = QSize(500, 520)) {
            Diagram diagram;
            diagram.setElements(withoutText);
            diagram.setPlane(kept.plane());
            diagram.setPalette(kept.palette());
            diagram.setShownRange(kept.shownRange());
            return painted(diagram, size);
        };
        QCOMPARE(painted(kept), fresh());
        kept.setPlane(Plane::CIE1976uvPrime);
        QCOMPARE(painted(kept), fresh());
        kept.setPalette(Diagram::Palette::Dark);
        QCOMPARE(painted(kept), fresh());
        kept.setShownRange(QRectF(0.1, 0.4, 0.3, 0.2));
        QCOMPARE(painted(kept), fresh());
        QCOMPARE(painted(kept, QSize(300, 200)), fresh(QSize(300, 200)));
    }

    void displayColors()
    {
        const QColor white = Diagram::displayColor(kD65);
        QVERIFY(qMin(qMin(white.red(), white.green()), white.blue()) > 225);
        QVERIFY(difference(white, QColor(white.red(), white.red(), white.red())) <= 2);
        QVERIFY(std::abs(Diagram::displayColor({0.64, 0.33}).hslHue() - 2) <= 10);
        QVERIFY(std::abs(Diagram::displayColor({0.30, 0.60}).hslHue() - 120) <= 10);
        QVERIFY(std::abs(Diagram::displayColor({0.15, 0.06}).hslHue() - 240) <= 10);
        for (const QPointF& wild : {QPointF(kNaN, 0.3), QPointF(0.3, kInf), QPointF(-kInf, kNaN)}) {
            QCOMPARE(Diagram::displayColor(wild), QColor(Qt::black));
            QVERIFY(!Diagram::isReal(wild));
        }
        QVERIFY(Diagram::displayColor({1e300, -1e300}).isValid());
        QVERIFY(Diagram::isReal(kD65) && Diagram::isReal({0.1, 0.8}) && Diagram::isReal({0.17, 0.01}));
        QVERIFY(!Diagram::isReal({0.0, 0.0}) && !Diagram::isReal({0.5, 0.6}) && !Diagram::isReal({0.5, 0.1}));
    }

    // What stands on a screen for a light: its chromaticity, dimmed in light, not in numbers; for a colour, its own
    // red, green and blue if it has them.
    void screenColors()
    {
        QCOMPARE(ScreenColor::ofLight(kD65, 1.0), Diagram::displayColor(kD65));
        QCOMPARE(ScreenColor::ofLight(kD65, 7.0), Diagram::displayColor(kD65));
        const QColor half = ScreenColor::ofLight(kD65, 0.5);
        const auto halved = [](int component) { // by the curve of IEC 61966-2-1
            const double linear = 0.5 * std::pow((component / 255.0 + 0.055) / 1.055, 2.4);
            return qRound(255.0 * (1.055 * std::pow(linear, 1.0 / 2.4) - 0.055));
        };
        const QColor full = Diagram::displayColor(kD65);
        QVERIFY(difference(half, QColor(halved(full.red()), halved(full.green()), halved(full.blue()))) <= 1);
        for (double nothing : {0.0, -1.0, kNaN})
            QCOMPARE(ScreenColor::ofLight(kD65, nothing), QColor(Qt::black));
        QCOMPARE(ScreenColor::ofLight({kNaN, 0.3}, 1.0), QColor(Qt::black));

        QCOMPARE(ScreenColor::ofColor(LXColor("#80ff8001")), QColor(255, 128, 1, 128));
        QCOMPARE(ScreenColor::ofColor(LXColor::fromxyY(kD65.x(), kD65.y(), 0.5, ColorUtils::ProfileGenericRGB)), half);
        const LXColor white =
            LXColor::fromNChannel8({255, 0, 0, 0, 255}, ColorUtils::ConfigRGBW, ColorUtils::ProfileWashLineQP6RGBW);
        const QColor shown = ScreenColor::ofColor(white);
        QVERIFY(shown.red() > 200 && shown.green() > 180 && shown.blue() > 120);
        QVERIFY(!ScreenColor::ofColor(LXColor()).isValid());
    }

    void nothingOutsideTheRectangleIsTouched()
    {
        Diagram diagram = withFixtureAndPoint();
        diagram.setTitle(QStringLiteral("A title that is wider than the picture").repeated(5));
        const QRect rect(60, 40, 300, 280);
        QImage image(420, 360, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        painter.setPen(Qt::green);
        painter.setOpacity(0.5);
        QFont font;
        font.setPixelSize(33);
        painter.setFont(font);
        diagram.paint(painter, rect);
        QCOMPARE(painter.pen().color(), QColor(Qt::green));
        QCOMPARE(painter.opacity(), 0.5);
        QCOMPARE(painter.font().pixelSize(), 33);
        QVERIFY(!painter.hasClipping());
        painter.end();
        bool touched = false;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (rect.contains(x, y))
                    touched |= image.pixelColor(x, y) != QColor(Qt::magenta);
                else
                    QCOMPARE(image.pixelColor(x, y), QColor(Qt::magenta));
            }
        }
        QVERIFY(touched);
    }

    void sharperScreensGetMorePixels()
    {
        Diagram diagram;
        diagram.setElements(Diagram::Background | Diagram::Interior | Diagram::SpectralLocus);
        const QImage fine = painted(diagram, QSize(300, 300), 3.0);
        const QImage large = painted(diagram, QSize(900, 900));
        // A picture three times as fine differs from one three times as large in the rounding of its plot alone.
        const QPointF at(0.3, 0.4);
        const QPointF inFine = 3.0 * diagram.positionOf(at, QRect(0, 0, 300, 300));
        const QPointF inLarge = diagram.positionOf(at, QRect(0, 0, 900, 900));
        QVERIFY(difference(fine.pixelColor(inFine.toPoint()), large.pixelColor(inLarge.toPoint())) <= 3);
        int edges = 0; // single pixels of the soft edge: none if the interior had been enlarged
        for (int x = 1; x < 899; ++x)
            edges += fine.pixelColor(x, 450) != fine.pixelColor(x - 1, 450);
        QVERIFY(edges > 100);
    }

    void everyElementShows_data()
    {
        QTest::addColumn<int>("element");
        QTest::newRow("background") << int(Diagram::Background);
        QTest::newRow("interior") << int(Diagram::Interior);
        QTest::newRow("spectral locus") << int(Diagram::SpectralLocus);
        QTest::newRow("wavelengths") << int(Diagram::Wavelengths);
        QTest::newRow("grid") << int(Diagram::Grid);
        QTest::newRow("axes") << int(Diagram::Axes);
        QTest::newRow("blackbody locus") << int(Diagram::BlackbodyLocus);
        QTest::newRow("daylight locus") << int(Diagram::DaylightLocus);
        QTest::newRow("tint lines") << int(Diagram::TintLines);
        QTest::newRow("fixtures") << int(Diagram::Fixtures);
        QTest::newRow("points") << int(Diagram::Points);
        QTest::newRow("names") << int(Diagram::Names);
        QTest::newRow("legend") << int(Diagram::Legend);
    }
    void everyElementShows()
    {
        QFETCH(int, element);
        for (Diagram::Palette palette : {Diagram::Palette::Light, Diagram::Palette::Dark}) {
            Diagram diagram = withFixtureAndPoint();
            diagram.setPalette(palette);
            diagram.setElement(Diagram::TintLines);
            diagram.setElement(Diagram::Legend, element == Diagram::Legend); // it would show the others
            const QImage with = painted(diagram);
            diagram.setElement(static_cast<Diagram::Element>(element), false);
            QVERIFY(differingPixels(painted(diagram), with) > 30);
        }
        QImage empty = painted(Diagram());
        empty.fill(Qt::transparent);
        Diagram nothing;
        nothing.setElements({});
        QCOMPARE(painted(nothing), empty);
    }

    void pointsAndFixturesAreWhereTheyBelong()
    {
        const QRect rect(0, 0, 900, 900);
        MatchReport::Target target;
        target.profile = ColorUtils::ProfileWashLineQP6RGBW;
        target.ioMode = ColorUtils::IOModeRGBW;
        const MatchReport report = MatchReport::make(LXColor(0.05, 0.45), target);
        QVERIFY(report.verdict == MatchReport::Verdict::MovedIntoGamut);
        for (Plane plane : {Plane::CIE1931xy, Plane::CIE1976uvPrime}) {
            Diagram diagram;
            diagram.setPlane(plane);
            diagram.setElements(Diagram::Background | Diagram::Points | Diagram::Fixtures);
            const QColor ground = painted(diagram, rect.size()).pixelColor(diagram.plotArea(rect).center());
            diagram.addPoint(report);
            const QPointF requested = diagram.positionOf(report.requested.xy(), rect);
            const QPointF achieved = diagram.positionOf(report.achieved.xy(), rect);
            const QImage image = painted(diagram, rect.size());
            QVERIFY(difference(image.pixelColor(achieved.toPoint()), ground) > 150);                     // a full dot
            QVERIFY(difference(image.pixelColor(requested.toPoint()), ground) == 0);                     // an open ring
            QVERIFY(difference(image.pixelColor(((requested + achieved) / 2).toPoint()), ground) > 100); // joined

            diagram.clearPoints();
            diagram.addFixture(target.profile, Qt::blue);
            QCOMPARE(diagram.fixtures().first().name, QStringLiteral("WashLine QP6 RGBW"));
            QCOMPARE(diagram.fixtures().first().emitters.size(), 4);
            QCOMPARE(diagram.fixtures().first().emitters.last().name, QStringLiteral("White"));
            const QImage triangle = painted(diagram, rect.size());
            QPointF corners[3];
            for (int i = 0; i < 3; ++i)
                corners[i] = diagram.positionOf(diagram.fixtures().first().emitters.at(i).xy, rect);
            for (int i = 0; i < 3; ++i) // a straight line in either plane
                QVERIFY(difference(triangle.pixelColor(((corners[i] + corners[(i + 1) % 3]) / 2).toPoint()), Qt::blue) <
                        90);
            const ChromaticityDiagram::Emitter& white = diagram.fixtures().first().emitters.last();
            QVERIFY(difference(triangle.pixelColor(diagram.positionOf(white.xy, rect).toPoint()),
                               Diagram::displayColor(white.xy)) <= 3);
        }
    }

    void whatIsNoNumberIsLeftOut()
    {
        Diagram empty;
        empty.setElements(Diagram::Background | Diagram::Fixtures | Diagram::Points | Diagram::Names);
        const QImage plain = painted(empty);
        Diagram diagram = empty;
        for (const QPointF& wild : {QPointF(kNaN, kNaN), QPointF(kInf, 0.3), QPointF(0.3, -kInf), QPointF(1e12, 1e12)})
            diagram.addPoint({wild, wild, QStringLiteral("nowhere")});
        diagram.addFixture({QString(), {{QStringLiteral("Red"), QPointF(kNaN, 0.3)}, {}}, QColor()});
        diagram.addFixture(Diagram::Fixture());
        diagram.addPoint(Diagram::Point());
        QCOMPARE(painted(diagram), plain);

        // One chromaticity of a point draws one mark; (0, 0) is a place like others.
        Diagram::Point achievedOnly;
        achievedOnly.achieved = QPointF(0.3, 0.3);
        Diagram half = empty;
        half.addPoint(achievedOnly);
        Diagram both = empty;
        both.addPoint({QPointF(0.0, 0.0), achievedOnly.achieved, QString()});
        QVERIFY(painted(half) != plain);
        QVERIFY(painted(both) != painted(half));
        const QPoint corner = half.positionOf({0.0, 0.0}, QRect(0, 0, 500, 520)).toPoint();
        const QRect around(corner - QPoint(12, 12), QSize(25, 25));
        QCOMPARE(painted(half).copy(around), painted(empty).copy(around));
        QVERIFY(std::isnan(half.positionOf({kNaN, 0.3}, QRect(0, 0, 100, 100)).x()));
        QVERIFY(std::isnan(half.chromaticityAt({kInf, 0.3}, QRect(0, 0, 100, 100)).x()));
    }

    void wildArguments()
    {
        for (const QRectF& range : {QRectF(0, 0, 0, 1), QRectF(kNaN, 0, 1, 1), QRectF(0, 0, kInf, 1),
                                    QRectF(1e17, 0, 1, 1), QRectF(0, 0, 1e-310, 1e-310), QRectF(-4, -4, 9, 8)}) {
            Diagram diagram;
            diagram.setShownRange(range);
            QCOMPARE(diagram.shownRange(), Diagram().shownRange());
        }
        Diagram flipped;
        flipped.setShownRange(QRectF(0.4, 0.5, -0.2, -0.3));
        QCOMPARE(flipped.shownRange(), QRectF(0.2, 0.2, 0.2, 0.3));

        for (const QRectF& range : {QRectF(), QRectF(0.3, 0.3, 0.001, 0.001), QRectF(-4, 0.3, 8, 0.001),
                                    QRectF(0.3, -4, 0.001, 8), QRectF(-4, -4, 8, 8), QRectF(2, 2, 1, 1)}) {
            for (Plane plane : {Plane::CIE1931xy, Plane::CIE1976uvPrime}) {
                for (const QSize& size : {QSize(0, 0), QSize(-5, 40), QSize(1, 1), QSize(2, 50), QSize(15, 15),
                                          QSize(120, 90), QSize(700, 30)}) {
                    Diagram diagram = withFixtureAndPoint();
                    diagram.setElement(Diagram::TintLines);
                    diagram.setPlane(plane);
                    diagram.setShownRange(range);
                    QImage image(800, 100, QImage::Format_RGB32);
                    QPainter painter(&image);
                    diagram.paint(painter, QRect(QPoint(3, 3), size));
                    diagram.chromaticityAt({10.0, 10.0}, QRect(QPoint(3, 3), size));
                }
            }
        }
        QPainter inactive;
        Diagram().paint(inactive, QRect(0, 0, 100, 100));
        const QRect vast(0, 0, std::numeric_limits<int>::max(), std::numeric_limits<int>::max());
        const QPointF back = Diagram().chromaticityAt(Diagram().positionOf(kD65, vast), vast);
        QVERIFY(length(back - kD65) < 1e-6);
    }
};

QTEST_MAIN(TestDiagram)
#include "tst_diagram.moc"
