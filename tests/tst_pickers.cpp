// White light picked, and a colour looked at on a fixture, as a person does it and as a person sees it.

#include "CCTImageUtils.h"
#include "CCTUtils.h"
#include "ChromaticityDiagram.h"
#include "Comparison.h"
#include "FixtureGamut.h"
#include "FixturePreview.h"
#include "ScreenColor.h"
#include "Support.h"
#include "WhitePointPicker.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPainter>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolButton>

Q_DECLARE_METATYPE(LXColor)

class TestPickers : public QObject
{
    Q_OBJECT

    template <typename Widget>
    static Widget* part(const QWidget& of, const char* name)
    {
        return of.findChild<Widget*>(QLatin1String(name));
    }
    static void type(QAbstractSpinBox* field, const QString& text)
    {
        field->selectAll();
        QTest::keyClicks(field, text);
        QTest::keyClick(field, Qt::Key_Return);
    }
    static void choose(QComboBox* box, const QString& text)
    {
        const int wanted = box->findText(text);
        QVERIFY2(wanted >= 0, qPrintable(text));
        while (box->currentIndex() != wanted)
            QTest::keyClick(box, box->currentIndex() < wanted ? Qt::Key_Down : Qt::Key_Up);
    }
    static QImage pictureOf(QWidget* widget)
    {
        QImage image(widget->size(), QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        widget->render(&painter);
        return image;
    }
    /// Where the ring is, as a person finds it: the middle of the white circle around the displayed colour.
    static QPoint ringIn(const QImage& image)
    {
        QRect found;
        for (int y = 8; y < image.height() - 8; ++y) {
            for (int x = 8; x < image.width() - 8; ++x) {
                const auto isWhite = [&](int dx, int dy) { return image.pixel(x + dx, y + dy) == qRgb(255, 255, 255); };
                if (isWhite(-7, 0) && isWhite(7, 0) && isWhite(0, -7) && isWhite(0, 7) && !isWhite(0, 0))
                    found |= QRect(x, y, 1, 1);
            }
        }
        return found.center();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
        qRegisterMetaType<LXColor>();
    }

    // Mouse, keys, numbers and calls are ways to the same white point, and each way shows it everywhere.
    void whitePoints()
    {
        WhitePointPicker picker;
        picker.setFixture(ColorUtils::ProfileWashLineQP6RGBW);
        picker.resize(520, 640);
        picker.show();
        auto* plot = part<QWidget>(picker, "whitePointPlot");
        auto* cct = part<QSpinBox>(picker, "cct");
        auto* tint = part<QDoubleSpinBox>(picker, "tint");
        QSignalSpy moved(&picker, &WhitePointPicker::whitePointChanged);
        QSignalSpy colors(&picker, &WhitePointPicker::colorChanged);

        type(cct, "5600");
        QCOMPARE(picker.cct(), 5600);
        QCOMPARE(moved.size(), 1);
        double x = 0;
        double y = 0;
        QVERIFY(CCTUtils::getxyFromCCT(5600, x, y));
        QCOMPARE(picker.xy(), QPointF(x, y));
        QCOMPARE(colors.last().first().value<LXColor>(), LXColor::fromxyY(x, y, 1.0, ColorUtils::ProfileGenericRGB));

        type(tint, "50");
        QCOMPARE(picker.tint(), 16384);
        QTest::keyClick(plot, Qt::Key_Home);
        QCOMPARE(picker.tint(), 0);
        QCOMPARE(tint->value(), 0.0);
        QTest::keyClick(plot, Qt::Key_Left);
        QTest::keyClick(plot, Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyClick(plot, Qt::Key_Up);
        QCOMPARE(cct->value(), 5640);
        QCOMPARE(picker.tint(), 327);
        QVERIFY(plot->accessibleDescription().startsWith("5640 K, 1.0 %. Inside the gamut of WashLine QP6 RGBW"));

        // A click puts the ring there, and the white point is that of the pixel, to within what a pixel is wide.
        const QPoint before = ringIn(pictureOf(plot));
        for (const QPoint& place : {before + QPoint(40, -20), before + QPoint(-20, 30)}) {
            QTest::mouseClick(plot, Qt::LeftButton, {}, place);
            const QPoint ring = ringIn(pictureOf(plot));
            QVERIFY2((ring - place).manhattanLength() <= 4, qPrintable(QString("%1 %2").arg(ring.x()).arg(ring.y())));
        }
        // Dragged out of the band of tints, it stays at the end of it.
        QTest::mousePress(plot, Qt::LeftButton, {}, before);
        QMouseEvent drag(QEvent::MouseMove, before + QPointF(-40, -120), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(plot, &drag);
        QCOMPARE(picker.tint(), CCTUtils::getMaxTint());
        QCOMPARE(tint->value(), 100.0);
    }

    // Both for a part and for the whole, the ring lies where the diagram's own coordinates have the chromaticity.
    void gamut()
    {
        WhitePointPicker picker;
        picker.resize(520, 640);
        picker.show();
        auto* sentence = part<QLabel>(picker, "gamutSentence");
        for (const auto profile : ColorUtils::tonematchProfileIDList(true)) {
            picker.setFixture(profile);
            const QString name = ColorUtils::tonematchProfileIDName(profile);
            for (int cct : {1950, 2700, 6500, 11000}) {
                for (int tint : {-32767, 0, 32767}) {
                    picker.setWhitePoint(cct, tint);
                    const FixtureGamut gamut(profile);
                    QCOMPARE(picker.isInGamut(), gamut.placeOf(picker.xy()).inside);
                    QVERIFY(sentence->text().contains(name));
                    QCOMPARE(sentence->text().startsWith("Inside"), picker.isInGamut());
                }
            }
        }
        QTest::mouseClick(part<QToolButton>(picker, "zoom"), Qt::LeftButton);
        QVERIFY(!picker.isZoomed());
        picker.setFixture(ColorUtils::ProfileGenericRGB);
        picker.setWhitePoint(6500, 0);
        picker.setFixture(static_cast<ColorUtils::TonematchProfileID>(77));
        QCOMPARE(picker.fixture(), ColorUtils::ProfileGenericRGB);
        auto* plot = part<QWidget>(picker, "whitePointPlot");
        const QImage picture = pictureOf(plot);
        const QColor middle = picture.pixelColor(ringIn(picture));
        QVERIFY(difference(middle, ChromaticityDiagram::displayColor(picker.xy())) <= 2);
    }

    void limits()
    {
        WhitePointPicker picker;
        QSignalSpy colors(&picker, &WhitePointPicker::colorChanged);
        picker.setWhitePoint(1, 1 << 30);
        QCOMPARE(picker.cct(), 1950);
        QCOMPARE(picker.tint(), 32767);
        picker.setWhitePoint(4219, -(1 << 30));
        QCOMPARE(picker.cct(), 4210);
        QCOMPARE(picker.tint(), -32767);
        picker.setIntensity(qQNaN());
        QCOMPARE(picker.intensity(), 0.0);
        picker.setIntensity(7.0);
        QCOMPARE(picker.intensity(), 1.0);
        colors.clear();
        for (const LXColor& none : {LXColor(), LXColor("#000000"), LXColor("#0000ff"), LXColor(qQNaN(), 0.3)})
            picker.setColor(none);
        QCOMPARE(colors.size(), 0);
        WhitePointPicker other;
        other.setWhitePoint(4210, -12000);
        other.setIntensity(0.25);
        picker.setColor(other.color());
        QCOMPARE(picker.cct(), 4210);
        QVERIFY(qAbs(picker.tint() + 12000) <= 1);
        QVERIFY(qAbs(picker.intensity() - 0.25) < 1e-9);
    }

    // The numbers that are shown are those of the report, and the patches and bars have its colours.
    void preview()
    {
        FixturePreview preview;
        preview.resize(420, 460);
        preview.show();
        QSignalSpy changed(&preview, &FixturePreview::targetChanged);
        const LXColor blue = LXColor::fromxyY(0.16, 0.015, 1.0, ColorUtils::ProfileGenericRGB);
        preview.setColor(blue);
        choose(part<QComboBox>(preview, "fixture"), "WashLine QP6 RGBW");
        choose(part<QComboBox>(preview, "ioMode"), "RGBW In/Out");
        choose(part<QComboBox>(preview, "resolution"), "16 bit");
        QVERIFY(changed.size() >= 3);

        MatchReport::Target target;
        target.profile = ColorUtils::ProfileWashLineQP6RGBW;
        target.ioMode = ColorUtils::IOModeRGBW;
        target.resolution = 2;
        target.allowRgbPassThrough = false;
        const MatchReport report = MatchReport::make(blue, target);
        QCOMPARE(preview.report().toJson(), report.toJson());
        QCOMPARE(part<QLabel>(preview, "sentence")->text(), report.sentence());
        QStringList bytes;
        for (const unsigned char byte : report.bytes)
            bytes << QString::number(byte);
        QString shown = part<QLabel>(preview, "dmxBytes")->text();
        shown.remove(QRegularExpression("<[^>]*>|&nbsp;|DMX"));
        QCOMPARE(shown.simplified(), bytes.join(' '));
        const QString told = part<QWidget>(preview, "emitterBars")->accessibleDescription();
        QVERIFY2(told.contains(QString("Blue 100.0 %, DMX %1 %2").arg(bytes.at(4), bytes.at(5))), qPrintable(told));

        auto* lights = part<QWidget>(preview, "lightPair");
        const QImage pair = pictureOf(lights);
        QCOMPARE(pair.pixelColor(pair.width() / 4, 20),
                 ScreenColor::ofLight(report.requested.xy(), report.requested.intensity));
        QCOMPARE(pair.pixelColor(pair.width() * 3 / 4, 20),
                 ScreenColor::ofLight(report.achieved.xy(), report.achieved.intensity));

        auto* bars = part<QWidget>(preview, "emitterBars");
        QCoreApplication::processEvents(); // room for the fourth
        const QImage rows = pictureOf(bars);
        const int rowHeight = bars->height() / 4;
        const int middle = bars->width() / 2;
        const QColor full = rows.pixelColor(middle, 2 * rowHeight + rowHeight / 2);
        QVERIFY2(full.blue() > 200 && full.red() < 120, qPrintable(full.name()));
        QVERIFY(difference(rows.pixelColor(middle, rowHeight / 2), full) > 100); // red is off

        // A profile has its own modes, and what is not there is replaced.
        choose(part<QComboBox>(preview, "fixture"), "PixelNode RGB");
        QCOMPARE(preview.target().ioMode,
                 ColorUtils::defaultIOModeIDForTonematchProfileID(ColorUtils::ProfilePixelNodeRGB));
        target.profile = static_cast<ColorUtils::TonematchProfileID>(99);
        target.ioMode = static_cast<ColorUtils::IOModeID>(99);
        target.resolution = 99;
        preview.setTarget(target);
        QCOMPARE(preview.target().profile, ColorUtils::ProfileGenericRGB);
        QCOMPARE(preview.target().resolution, 1);
        preview.setColor(LXColor("#ff8000"));
        QTest::mouseClick(part<QCheckBox>(preview, "match"), Qt::LeftButton, {}, QPoint(8, 8));
        QVERIFY(preview.target().allowRgbPassThrough);
        QCOMPARE(preview.report().bytes, (QList<unsigned char>{255, 128, 0}));
        preview.setColor(LXColor());
        QCOMPARE(preview.report().verdict, MatchReport::Verdict::Invalid);
        preview.grab();
    }
};

QTEST_MAIN(TestPickers)
#include "tst_pickers.moc"
