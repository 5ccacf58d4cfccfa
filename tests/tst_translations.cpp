// The names that a user sees, in German: the translation is installed before any registry wakes, as in an application.
#include "ColorUtils.h"
#include "CurveFactory.h"
#include "IOModeFactory.h"
#include "ToneMatchProfile.h"
#include "TonematchProfileFactory.h"

#include <QTranslator>
#include <QtTest>

class tst_translations : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_translator.load(QLocale(QLocale::German), "lxcolor", "_", LXCOLOR_QM_DIR));
        QVERIFY(QCoreApplication::installTranslator(&m_translator));
    }

    void profiles()
    {
        const QStringList expected{"Allgemeines RGB",   "Flare/Flash QVS",   "PrismaFlow CoveStrip", "Allgemeines RGBW",
                                   "Einzelkanal",       "WashLine QP6 RGBA", "WashLine QP6 RGBW",    "PixelNode RGB",
                                   "FloodBar ZN2 RGBA", "FloodBar ZN2 RGBW"};
        QCOMPARE(ColorUtils::tonematchProfileIDNameList(true), expected);
    }

    void emitters()
    {
        const auto names = [](ColorUtils::TonematchProfileID profile) {
            return TonematchProfileFactory::instance()->getProfile(profile)->getChannelNames();
        };
        QCOMPARE(names(ColorUtils::ProfileFlareFlashQVS),
                 QStringList({"Rot", QStringLiteral("Grün"), "Blau", "Amber", QStringLiteral("Weiß")}));
        QCOMPARE(names(ColorUtils::ProfilePrismaFlowCoveStrip),
                 QStringList({"Rot", QStringLiteral("Grün"), "Blau", "Mint", QStringLiteral("Weiß")}));
    }

    void ioModes()
    {
        IOModeFactory* modes = IOModeFactory::instance();
        QCOMPARE(modes->nameForIOModeID(ColorUtils::IOModeRGBAW), QString("RGBAW Ein-/Ausgang"));
        QCOMPARE(modes->nameForIOModeID(ColorUtils::IOModeRGBToRGBWW), QString("RGB-Eingang / RGBWW-Ausgang"));
        QCOMPARE(modes->nameForIOModeID(ColorUtils::IOModeSingleChannel), QString("Einzelkanal Ein-/Ausgang"));
    }

    void curves()
    {
        CurveFactory* curves = CurveFactory::Instance();
        QCOMPARE(curves->nameForCurveType(0), QString("Linear (Standard)"));
        QCOMPARE(curves->curveTypeFromName(QStringLiteral("Halogen/Glühlampe")), 2);
        QCOMPARE(curves->curveTypeFromName("Tungsten/Incandescent"), -1);
    }

    void configurationNamesStay()
    {
        QCOMPARE(ColorUtils::nameForChannelConfiguration(ColorUtils::ConfigSingleChannel), QString("Single Channel"));
    }

private:
    QTranslator m_translator;
};

QTEST_GUILESS_MAIN(tst_translations)

#include "tst_translations.moc"
