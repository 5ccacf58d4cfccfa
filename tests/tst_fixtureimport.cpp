// Measurements of fixtures: what each kind of file gives, which emitter becomes which channel, what a database keeps,
// and files with a fault.
#include "DocumentChecker.h"
#include "FixtureImport.h"
#include "Support.h"
#include "Tristimulus.h"
#include "TristimulusFactory.h"

#include <QBuffer>
#include <QFile>

#include <cmath>

using Emitter = FixtureImport::Emitter;
using Source = FixtureImport::Source;
Q_DECLARE_METATYPE(FixtureImport::Source)

namespace {

/// "name x y Y" of each emitter.
QStringList shown(const QVector<Emitter>& emitters)
{
    QStringList all;
    for (const Emitter& emitter : emitters) {
        const QPointF xy = emitter.light.xy();
        all << QStringLiteral("%1 %2 %3 %4")
                   .arg(emitter.name)
                   .arg(xy.x(), 0, 'f', 4)
                   .arg(xy.y(), 0, 'f', 4)
                   .arg(emitter.light.Y, 0, 'g', 5);
    }
    return all;
}

Emitter emitter(const char* name, double x, double y, double Y = 1.0)
{
    return {QString::fromUtf8(name), {x / y * Y, Y, (1.0 - x - y) / y * Y}, "line 1 -- of --- a table--"};
}

const QVector<Emitter>& rgbw()
{
    static const QVector<Emitter> all{emitter("Red", 0.69, 0.305, 100), emitter("Green", 0.17, 0.70, 300),
                                      emitter("Blue", 0.14, 0.05, 40), emitter("White", 0.32, 0.335, 500)};
    return all;
}

/// Line and column of the error.
QString placeOf(const FixtureImport::Reading& reading)
{
    return QStringLiteral("%1:%2").arg(reading.error.line).arg(reading.error.column);
}

QByteArray gdtf(const QByteArray& emitters)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<GDTF DataVersion=\"1.2\"><FixtureType Name=\"t\">"
           "<PhysicalDescriptions>\n<Emitters>\n" +
           emitters + "</Emitters></PhysicalDescriptions></FixtureType></GDTF>\n";
}

QByteArray cgats(const QByteArray& head, const QByteArray& data)
{
    return "CGATS.17\nORIGINATOR \"bench\"\nKEYWORD \"UNIT\"\n" + head + "END_DATA_FORMAT\nBEGIN_DATA\n" + data +
           "END_DATA\n";
}

/// Samples of a spectrum: CIE standard illuminant A by its formula (CIE 15), equal energy, and a line of 2 nm.
double illuminantA(double nm)
{
    return 100.0 * std::pow(560.0 / nm, 5.0) * (std::exp(1.435e7 / (2848.0 * 560.0)) - 1.0) /
           (std::exp(1.435e7 / (2848.0 * nm)) - 1.0);
}
double equalEnergy(double /*nm*/) { return 1.0; }
double line555(double nm) { return nm == 555.0 ? 1.0 : 0.0; }

QByteArray spectralColumns()
{
    QByteArray text = "wavelength (nm);A [W/m\xc2\xb2/nm];E;line;\n";
    for (int nm = 360; nm <= 830; ++nm)
        text += QString("%1;%2;%3;%4;\n")
                    .arg(nm)
                    .arg(illuminantA(nm))
                    .arg(equalEnergy(nm))
                    .arg(line555(nm))
                    .replace('.', ',')
                    .toUtf8();
    return text;
}

QByteArray spectralRows()
{
    QByteArray fields = "UNIT \"mW/(m2 nm)\"\nBEGIN_DATA_FORMAT\nSAMPLE_ID SAMPLE_NAME";
    QByteArray a = "1 \"lamp A\"";
    for (int nm = 380; nm <= 780; nm += 5) {
        fields += " SPECTRAL_NM" + QByteArray::number(nm);
        a += ' ' + QByteArray::number(illuminantA(nm));
    }
    return cgats(fields + '\n', a + '\n');
}

QByteArray points(double (*energy)(double nm))
{
    QByteArray text;
    for (int nm = 380; nm <= 780; nm += 5)
        text += QString("<MeasurementPoint WaveLength=\"%1\" Energy=\"%2\"/>").arg(nm).arg(energy(nm)).toUtf8();
    return text;
}

DocumentChecker::Report checked(QByteArray content)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return DocumentChecker::check(&buffer);
}

} // namespace

class TestFixtureImport : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void measurements_data()
    {
        // content, stated unit, source, unit, emitters, what each remark contains
        const Rows<QByteArray, QString, Source, QString, QStringList, QStringList> row;
        const QStringList two{"Rot 0.6915 0.3081 148.2", "B 0.1402 0.0498 41.6"};
        row("csv, x y Y, semicolons and decimal commas",
            "\xef\xbb\xbf# bench\n\nEmitter;x;y;Y "
            "(cd/m\xc2\xb2);note\r\nRot;0,6915;0,3081;148,2;ok\r\nB;0,1402;0,0498;41,6;\r\n",
            "", Source::Csv, "cd/m2", two, {});
        row("csv, quoted decimal commas, unit in a comment and by the caller",
            "# Unit: lux\nname,x,y,Y\nRot,\"0,6915\",\"0,3081\",\"148,2\"\nB,\"0,1402\",\"0,0498\",\"41,6\"\n", "lx",
            Source::Csv, "lx", two, {});
        row("csv, X Y Z beside others, a little noise",
            "LED,CCT,x,y,X,Y [lm],Z,380 nm,390 nm\nr,,.1,.1,200,100,-0.1,7,8\n", "", Source::Csv, "lm",
            {"r 0.6667 0.3333 100"},
            {QString::fromUtf8("not used: x, y, 380 nm\xe2\x80\xa6"
                               "390 nm."),
             "r: X or Z"});
        row("cgats, x y Y, decimal commas",
            cgats("UNIT \"cd\"\nNUMBER_OF_SETS 2 # two\nBEGIN_DATA_FORMAT\nSAMPLE_NAME XYY_X XYY_Y XYY_CAPY\n",
                  "Rot 0,6915 0,3081 148,2\n\"B\" 0,1402 0,0498 4,16e1\n"),
            "", Source::Cgats, "cd", two, {});
        row("cgats, X Y Z, a second table",
            cgats("BEGIN_DATA_FORMAT\nSAMPLE_ID XYZ_X XYZ_Y XYZ_Z\n", "w 95.047 100 108.883\n") +
                "BEGIN_DATA\nx 1 2 3\nEND_DATA\n",
            "nit", Source::Cgats, "cd/m2", {"w 0.3127 0.3290 100"}, {"first table"});
        // x, y of A (CIE 15), of equal energy, and of the spectral locus at 555 nm; the sums of the observer.
        row("csv, spectra in columns", spectralColumns(), "", Source::Csv, "W/m2/nm",
            {"A 0.4476 0.4074 10790", "E 0.3333 0.3333 106.86", "line 0.3374 0.6588 0.99997"}, {});
        row("cgats, spectra in rows", spectralRows(), "", Source::Cgats, "mW/m2/nm", {"lamp A 0.4476 0.4074 10790"},
            {});
        row("gdtf, spectra and colours by candela, ultraviolet, at 80 %",
            gdtf("<Emitter Name=\"A\" Color=\"0.1,0.1,5\"><Measurement Physical=\"10\" LuminousIntensity=\"9\"/>"
                 "<Measurement Physical=\"80\" LuminousIntensity=\"1200\">" +
                 points(illuminantA) +
                 "</Measurement></Emitter>"
                 "<Emitter Name=\"R\" Color=\"0.69,0.305,1\"><Measurement Physical=\"80\" "
                 "LuminousIntensity=\"300\"/></Emitter>"
                 "<Emitter Name=\"C\" DominantWaveLength=\"500\"><Measurement Physical=\"80\" "
                 "LuminousIntensity=\"7\"/></Emitter>"
                 "<Emitter Name=\"N\" Color=\"0.3,0.3,1\"/><Emitter Name=\"UV\" DominantWaveLength=\"365\"/>"),
            "", Source::GdtfDescription, "cd", {"A 0.4476 0.4074 1200", "R 0.6900 0.3050 300", "C 0.0082 0.5384 7"},
            {"UV is left out", "C has no Color", "N is left out", "at 80 %"});
        row("gdtf, colours alone",
            gdtf("<Emitter Name=\"R\" Color=\"0.69,0.305,21.5\"/><Emitter Name=\"W\" Color=\"0.32, 0.335, 60\"/>"), "",
            Source::GdtfDescription, "relative", {"R 0.6900 0.3050 21.5", "W 0.3200 0.3350 60"}, {});
        row("gdtf, spectra alone",
            gdtf("<Emitter Name=\"E\"><Measurement Physical=\"100\">" + points(equalEnergy) +
                 "</Measurement></Emitter>"),
            "", Source::GdtfDescription, "W/m2/nm", {"E 0.3333 0.3333 106.86"}, {});
    }
    void measurements()
    {
        const auto [content, stated, source, unit, emitters, remarks] =
            fetched<QByteArray, QString, Source, QString, QStringList, QStringList>();
        const auto reading = FixtureImport::read(content, stated);
        QVERIFY2(reading.isRead, qPrintable(placeOf(reading) + ' ' + reading.error.text));
        QCOMPARE(reading.source, source);
        QCOMPARE(reading.unit, unit);
        QCOMPARE(shown(reading.emitters), emitters);
        QCOMPARE(reading.remarks.size(), remarks.size());
        for (int i = 0; i < remarks.size(); ++i)
            QVERIFY2(reading.remarks[i].contains(remarks[i]), qPrintable(reading.remarks[i]));
    }

    // One defect each.
    void faults_data()
    {
        const Rows<QByteArray, QString, QString, QString> rows;
        const auto row = [&](const char* name, const QByteArray& content, const char* place, const char* text,
                             const char* stated = "") { rows(name, content, place, text, stated); };
        const QByteArray heads = "name;x;y;Y (cd)\n";
        row("empty", "", "1:1", "empty");
        row("heads alone", heads, "1:1", "no measurements");
        row("unknown columns", "name;u;v\na;1;2\n", "1:1", "x, y, Y");
        row("no names", "x;y;Y (cd)\n0,3;0,3;1\n", "1:1", "names of emitters");
        row("no unit", "name;x;y;Y\na;0,3;0,3;1\n", "1:1", "not stated; accepted: cd, cd/m2");
        row("a unit of something else", "name;x;y;Y (W)\na;0,3;0,3;1\n", "1:10", "\"W\" does not fit");
        row("another unit than stated", heads + "a;0,3;0,3;1\n", "1:1", "\"lx\" here, but \"cd\"", "lx");
        row("decimal commas between commas", "name,x,y,Y (cd)\na,0,3,0,3,1\n", "2:1", "is 6, that");
        row("points and commas", heads + "a;0,3;0.3;1\n", "2:7", "mixed");
        row("thousands", heads + "a;0.3;0.3;1.234,5\n", "2:11", "mixed");
        row("no number", heads + "a;0,3;red;1\n", "2:7", "\"red\" is no number");
        row("no light has it", heads + "a;0,7;0,4;1\n", "2:3", "chromaticity 0.7, 0.4");
        row("y of 0", heads + "a;0,7;0;1\n", "2:3", "chromaticity");
        row("Y of 0", heads + "a;0,3;0,3;0\n", "2:3", "above 0");
        row("Y of 1e13", heads + "a;0,3;0,3;1e13\n", "2:3", "1e+12");
        row("negative X", "name;X;Y (cd);Z\na;-5;100;3\n", "2:3", "negative X or Z");
        row("a name twice", heads + "a;0,3;0,3;1\na;0,3;0,4;1\n", "3:1", "second \"a\"");
        row("wavelengths in micrometres", "wavelength (um);a (W/nm)\n0,4;1\n0,5;1\n", "1:1", "nanometres");
        row("wavelengths in other figures", "nm;a (W/nm)\n0,4;1\n0,5;1\n", "1:4", "0.4 to 0.5");
        row("units of columns differ", "nm;a (W/nm);b (mW/nm)\n400;1;1\n500;1;1\n", "1:13", "\"mW/nm\"");
        row("a wavelength twice", "nm;a (W/nm)\n400;1\n400;2\n", "1:4", "differ");
        row("no light in a spectrum", "nm;a (W/nm)\n400;0\n700;0\n", "1:4", "no light");
        const QByteArray format = "UNIT \"cd\"\nBEGIN_DATA_FORMAT\nSAMPLE_ID XYZ_X XYZ_Y XYZ_Z\n";
        row("cgats: a value too few", cgats(format, "a 1 2 3\nb 1 2\n"), "8:11", "7 values");
        row("cgats: another number of sets", cgats("NUMBER_OF_SETS 3\n" + format, "a 1 2 3\n"), "4:16",
            "3, but there are 1");
        row("cgats: quotes open", cgats(format, "\"a 1 2 3\n"), "9:1", "not closed");
        row("cgats: no end", cgats(format, "a 1 2 3\n").chopped(9), "10:1", "END_DATA");
        row("gdtf: another root", "<a/>", "1:1", "no GDTF");
        row("gdtf: no emitters", gdtf(""), "5:1", "no emitters");
        row("gdtf: not closed", gdtf("<Emitter Name=\"a\">"), "4:29", "well-formed");
        row("gdtf: a colour of two numbers", gdtf(" <Emitter Color=\"0.3,0.3\"/>"), "4:2", "x,y,Y");
        row("gdtf: no energy",
            gdtf("<Emitter>\n<Measurement Physical=\"100\">\n<MeasurementPoint "
                 "WaveLength=\"1\"/></Measurement></Emitter>"),
            "6:1", "Energy is missing");
        row("gdtf: a level of 0", gdtf("<Emitter>\n<Measurement Physical=\"0\"/></Emitter>"), "5:1", "Physical");
        row("gdtf: levels differ",
            gdtf("<Emitter Name=\"a\" Color=\".3,.3,1\"><Measurement Physical=\"100\" "
                 "LuminousIntensity=\"1\"/></Emitter>\n"
                 "<Emitter Name=\"b\" Color=\".3,.3,1\"><Measurement Physical=\"50\" "
                 "LuminousIntensity=\"1\"/></Emitter>"),
            "5:1", "50 %");
        row("gdtf: a unit is stated", gdtf(""), "0:0", "units of its own", "cd");
        row("gdtf: entities", "<!DOCTYPE a [<!ENTITY e 'ee'>]><GDTF/>", "1:1", "Entities");
        row("archive: broken", "PK\3\4 and no more", "0:0", FixtureImport::readsArchives() ? "archive" : "libzip");
    }
    void faults()
    {
        const auto [content, place, text, stated] = fetched<QByteArray, QString, QString, QString>();
        const auto reading = FixtureImport::read(content, stated);
        QVERIFY(!reading.isRead && reading.emitters.isEmpty());
        QVERIFY2(reading.error.text.contains(text), qPrintable(reading.error.text));
        QCOMPARE(placeOf(reading), place);
    }

    void channels_data()
    {
        // names of red, green, blue, 3000 K, 6000 K, amber, pale green, "-" for none; profile; stated; expected
        const Rows<QStringList, int, QStringList, QString> rows;
        const auto row = [&](const char* name, const char* names, int profile, const char* expected,
                             const char* stated = "") {
            rows(name, QString::fromUtf8(names).split('|'), profile, QString(stated).split(',', Qt::SkipEmptyParts),
                 QString::fromUtf8(expected));
        };
        row("plain names", "Red|Green|Blue|-|White|Amber|-", ColorUtils::ProfileFlareFlashQVS,
            "Red|Green|Blue|Amber|White");
        row("German, and not all are used", "Rot|Gr\xc3\xbcn|Blau|-|Wei\xc3\x9f|Bernstein|-",
            ColorUtils::ProfileWashLineQP6RGBW, "Rot|Gr\xc3\xbcn|Blau|Wei\xc3\x9f");
        row("words in names", "LED_red_1|Lime/Green LED|RoyalBlue|-|-|PC Amber|-", ColorUtils::ProfileWashLineQP6RGBA,
            "LED_red_1|Lime/Green LED|RoyalBlue|PC Amber");
        row("by colours", "1|2|3|-|5|6|-", ColorUtils::ProfileFlareFlashQVS, "1|2|3|6|5");
        row("mint by its colour", "R|G|B|-|W|-|x", ColorUtils::ProfilePrismaFlowCoveStrip, "R|G|B|x|W");
        row("warm and cool white", "R|G|B|WarmWhite|White|-|-", ColorUtils::ProfilePrismaFlowCoveStrip,
            "R|G|B|WarmWhite|White");
        row("two whites", "R|G|B|White 3000|White 6000|-|-", ColorUtils::ProfileWashLineQP6RGBW,
            "!Several emitters may be White: \"White 3000\", \"White 6000\"");
        row("two whites, by colour", "R|G|B|d|e|-|-", ColorUtils::ProfileWashLineQP6RGBW,
            "!Several emitters may be White");
        row("stated", "R|G|B|d|e|-|-", ColorUtils::ProfileWashLineQP6RGBW, "R|G|B|e", "r,2, B,e");
        row("stated, one too few", "R|G|B|d|-|-|-", ColorUtils::ProfileWashLineQP6RGBW,
            "!The number of channels stated is 3, that of the fixture 4: Red, Green, Blue, White", "R,G,B");
        row("stated, unknown", "R|G|B|-|-|-|-", ColorUtils::ProfilePixelNodeRGB,
            "!no emitter \"C\"; there are: \"R\", \"G\", \"B\"", "R,G,C");
        row("stated twice", "R|G|B|-|-|-|-", ColorUtils::ProfilePixelNodeRGB, "!twice", "R,G,G");
        row("one is missing", "R|G|B|-|-|-|-", ColorUtils::ProfileWashLineQP6RGBA, "!no emitter for Amber");
        row("names swapped", "Green|Red|Blue|-|-|-|-", ColorUtils::ProfilePixelNodeRGB, "!\"Red\" cannot be Red");
        row("a single channel", "R|G|B|-|W|-|-", ColorUtils::ProfileSingleChannel, "!no gamut");
        row("no fixture", "R|G|B|-|W|-|-", 42, "!No fixture");
    }
    void channels()
    {
        const auto [names, profile, stated, expected] = fetched<QStringList, int, QStringList, QString>();
        const QPointF colors[] = {{0.6915, 0.3081}, {0.1712, 0.7041}, {0.1402, 0.0498}, {0.4369, 0.4041},
                                  {0.3220, 0.3318}, {0.5705, 0.4288}, {0.3700, 0.5000}};
        QVector<Emitter> emitters;
        for (int i = 0; i < names.size(); ++i)
            if (names[i] != "-")
                emitters.append(emitter(names[i].toUtf8(), colors[i].x(), colors[i].y()));
        const auto assignment =
            FixtureImport::assign(emitters, static_cast<ColorUtils::TonematchProfileID>(profile), stated);
        QCOMPARE(assignment.isComplete, !expected.startsWith('!'));
        if (!assignment.isComplete) {
            QVERIFY2(assignment.error.contains(expected.mid(1)), qPrintable(assignment.error));
            return;
        }
        QStringList found;
        for (const Emitter& channel : assignment.channels)
            found << channel.name;
        QCOMPARE(found.join('|'), expected);
    }

    void lightsOutOfTheOrdinary()
    {
        QVector<Emitter> emitters = rgbw();
        emitters[0] = emitter("Red", 0.73, 0.27);
        emitters[2] = emitter("Blue", 0.17, 0.001);
        emitters[0].light.Z = 0.0;
        const auto assignment = FixtureImport::assign(emitters, ColorUtils::ProfilePixelNodeRGB);
        QVERIFY2(assignment.isComplete, qPrintable(assignment.error));
        const QString remarks = assignment.remarks.join('\n');
        QVERIFY2(remarks.contains("Red has X or Z of 0") && remarks.contains("Blue is outside") &&
                     remarks.contains("Not used: \"White\""),
                 qPrintable(remarks));
    }

    void databases_data()
    {
        // database; may replace; what of it stands before and behind the profile; error
        const Rows<QByteArray, bool, QByteArray, QByteArray, QString> row;
        const QByteArray five =
            "<Profile index='5' name='\xc3\xa4'><Channel name='r' index='0' X='2' Y='1' Z='1'/><Channel name='g' "
            "index='1' X='1' Y='2' Z='1'/>"
            "<Channel name='b' index='2' X='1' Y='1' Z='9'/><Channel name='a' index='3' X='2' Y='2' Z='1'/></Profile>";
        const QByteArray six = QByteArray(five).replace("'5'", "' 6 '");
        row("new", "", false, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Profiles>\n  ", "\n</Profiles>\n", "");
        row("none in it", "<!-- < > -->\n<Profiles/> <!-- end -->\n", false, "<!-- < > -->\n<Profiles>\n  ",
            "\n</Profiles> <!-- end -->\n", "");
        row("another in it", "<Profiles>\n" + five + "<!-- '>' -->\n</Profiles >\n", false,
            "<Profiles>\n" + five + "<!-- '>' -->\n  ", "\n</Profiles >\n", "");
        row("all on one line", "<x>" + five + "</x>", false, "<x>" + five + "\n  ", "\n</x>", "");
        row("line ends of two characters",
            "\xef\xbb\xbf<Profiles>\r\n" + five + "\r\n" + six + "\r\n<!-- 6 --></Profiles>\r\n", true,
            "\xef\xbb\xbf<Profiles>\r\n" + five + "\r\n", "\r\n<!-- 6 --></Profiles>\r\n", "");
        row("replaced", "<Profiles>\n\t" + six + five + "</Profiles>", true, "<Profiles>\n\t", five + "</Profiles>",
            "");
        row("not to be replaced", "<Profiles>\n" + six + "</Profiles>", false, "", "", "profile 6 already, in line 2");
        row("an error in it", "<Profiles><Profile index='5'/></Profiles>", true, "", "", "errors");
        row("not well-formed", "<Profiles>\n" + five, true, "", "", "errors");
        row("something else", "<ColorLibraryList/>", true, "", "", "no fixture profile database");
        row("Latin-1",
            "<?xml version='1.0' encoding='ISO-8859-1'?><Profiles>" + QByteArray(five).replace("\xc3\xa4", "\xe4") +
                "</Profiles>",
            true, "", "", "UTF-8");
        row("a profile as the root", six, true, "", "", "root");
    }
    void databases()
    {
        const auto [database, mayReplace, before, behind, error] =
            fetched<QByteArray, bool, QByteArray, QByteArray, QString>();
        const auto result = FixtureImport::writeProfile(database, ColorUtils::ProfileWashLineQP6RGBW, rgbw(),
                                                        "a--b<c>.csv", mayReplace);
        QVERIFY2(result.error.contains(error), qPrintable(result.error));
        QCOMPARE(result.isWritten, error.isEmpty());
        if (result.isWritten) {
            QVERIFY2(result.content.startsWith(before) && result.content.endsWith(behind), result.content);
            const QByteArray profile =
                result.content.mid(before.size(), result.content.size() - before.size() - behind.size());
            QVERIFY2(profile.startsWith("<Profile ") && profile.endsWith("</Profile>"), profile);
            QCOMPARE(result.isReplacing, mayReplace);
            const DocumentChecker::Report report = checked(result.content);
            QCOMPARE(report.errors, qint64(0));
        }
        Messages::take(); // the reader's word on what it rejects
    }

    // The library's own reader gets the light that was measured.
    void readBack()
    {
        QByteArray content =
            FixtureImport::writeProfile({}, ColorUtils::ProfileWashLineQP6RGBW, rgbw(), "bench.csv").content;
        QBuffer buffer(&content);
        buffer.open(QIODevice::ReadOnly);
        QVERIFY(TristimulusFactory::getInstance()->parseXML(&buffer));
        Messages::take();
        Tristimulus* record = TristimulusFactory::getInstance()->getTristimulus(ColorUtils::ProfileWashLineQP6RGBW,
                                                                                ColorUtils::ConfigRGBW);
        QCOMPARE(record->getChannelNames(), QStringList({"Red", "Green", "Blue", "White"}));
        for (int i = 0; i < 4; ++i) {
            const StandardObserver::XYZ& light = rgbw()[i].light;
            for (const auto& pair : {qMakePair(record->getX()[i], light.X), qMakePair(record->getY()[i], light.Y),
                                     qMakePair(record->getZ()[i], light.Z)})
                QVERIFY2(std::fabs(pair.first - pair.second) <= 1e-8 * light.Y, qPrintable(QString::number(i)));
        }
    }
};

QTEST_APPLESS_MAIN(TestFixtureImport)
#include "tst_fixtureimport.moc"
