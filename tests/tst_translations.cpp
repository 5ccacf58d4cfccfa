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

    // That each text is translated is checked where the package is.
    void eachRegistry()
    {
        QCOMPARE(ColorUtils::tonematchProfileIDNameList(true).value(0), QString("Allgemeines RGB"));
        QCOMPARE(TonematchProfileFactory::instance()->getProfile(ColorUtils::ProfileFlareFlashQVS)->getChannelNames(),
                 QStringList({"Rot", QStringLiteral("Grün"), "Blau", "Amber", QStringLiteral("Weiß")}));
        QCOMPARE(IOModeFactory::instance()->nameForIOModeID(ColorUtils::IOModeRGBToRGBWW),
                 QString("RGB-Eingang / RGBWW-Ausgang"));
        CurveFactory* curves = CurveFactory::Instance();
        QCOMPARE(curves->nameForCurveType(0), QString("Linear (Standard)"));
        QCOMPARE(curves->curveTypeFromName(QStringLiteral("Halogen/Glühlampe")), 2);
        QCOMPARE(curves->curveTypeFromName("Tungsten/Incandescent"), -1);
        QCOMPARE(ColorUtils::nameForChannelConfiguration(ColorUtils::ConfigSingleChannel), QString("Single Channel"));
    }

private:
    QTranslator m_translator;
};

QTEST_GUILESS_MAIN(tst_translations)

#include "tst_translations.moc"
