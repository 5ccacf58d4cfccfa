#include "CCTUtils.h"
#include "ChromaticityDiagram.h"
#include "Comparison.h"
#include "ToolSupport.h"

#include <QImage>
#include <QXmlStreamReader>

// lxcolor plot, from outside: what is in the picture, and that no picture is harmed.

namespace {

QPointF pixelOf(const QJsonValue& place)
{
    return {place.toObject().value("left").toDouble(-1), place.toObject().value("top").toDouble(-1)};
}

QStringList textsOf(const QByteArray& svg, int* images)
{
    QXmlStreamReader reader(svg);
    QStringList texts;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        *images += reader.name() == QLatin1String("image");
        if (reader.name() == QLatin1String("text") || reader.name() == QLatin1String("title"))
            texts.append(reader.readElementText().trimmed());
    }
    return reader.hasError() ? QStringList() : texts;
}

} // namespace

class TestToolPlot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void places()
    {
        // No display, and none chosen for the program: it finds its own way.
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
            environment.remove(name);
        process.setProcessEnvironment(environment);
        process.start(program(),
                      {"plot", path("places.png"), "deep blue=0.16,0.015", "0.25,0.55", "--white", "3200,-4000",
                       "--match", "6", "--fixture", "0", "--fixture", "6", "--size", "700x720", "--json"});
        const Outcome outcome = finish(process);
        QVERIFY2(ok(outcome), qPrintable(outcome.err));
        const QImage image(path("places.png"));
        QCOMPARE(image.size(), QSize(700, 720));

        const QJsonObject json = outcome.json();
        QCOMPARE(json.value("plane").toString(), QString("xy"));
        QCOMPARE(json.value("fixtures").toArray().size(), 2); // one that is named twice is drawn once
        const QJsonArray points = json.value("points").toArray();
        QCOMPARE(points.size(), 3);
        QCOMPARE(points.at(0).toObject().value("name").toString(), QString("3200 K, tint -4000"));
        double x = 0.0;
        double y = 0.0;
        CCTUtils::getxyFromCCTAndTint(3200, -4000, x, y);
        QCOMPARE(points.at(0).toObject().value("requested").toObject().value("x").toDouble(), x);

        // Where it says that emitters and achieved colours are, there they are.
        for (const QJsonValue& fixture : json.value("fixtures").toArray()) {
            const QJsonObject last = fixture.toObject().value("emitters").toArray().last().toObject();
            const QJsonObject place = last.value("place").toObject();
            const QColor expected =
                ChromaticityDiagram::displayColor({place.value("x").toDouble(), place.value("y").toDouble()});
            if (last.value("name") == "White") // no point lies upon it
                QVERIFY(difference(image.pixelColor(pixelOf(place).toPoint()), expected) <= 3);
        }
        for (const QJsonValue& point : points) {
            const QPointF achieved = pixelOf(point.toObject().value("achieved"));
            QVERIFY(difference(image.pixelColor(achieved.toPoint()), QColor(20, 22, 26)) <= 3);
        }
        QVERIFY(QLineF(pixelOf(points.at(1).toObject().value("requested")),
                       pixelOf(points.at(1).toObject().value("achieved")))
                    .length() > 20.0); // moved to the blue corner
    }

    void vectorPicture()
    {
        const Outcome outcome = succeed({"plot", path("picture.SVG"), "--title", "Pink & <blue>", "--fixture", "1",
                                         "rose=pink", "--white", "5600", "--plane", "uv", "--tint-lines"});
        QCOMPARE(outcome.out, QString());
        QVERIFY(contentOf(path("picture.SVG")).contains("font-family=\"sans-serif\""));
        int images = 0;
        const QStringList texts = textsOf(contentOf(path("picture.SVG")), &images);
        QCOMPARE(images, 1);
        QCOMPARE(texts.count("Pink & <blue>"), 2); // the document's title and the picture's
        for (const char* expected :
             {"Flare/Flash QVS", "Amber", "rose", "5600 K", "CCT and tint", "520", "Blackbody", "v\u2032"})
            QVERIFY2(texts.contains(QString::fromUtf8(expected)), expected);
    }

    void options()
    {
        // Each option makes a picture that none of the others makes.
        const QList<QStringList> variants = {{},
                                             {"--plane", "uv"},
                                             {"--palette", "dark"},
                                             {"--tint-lines"},
                                             {"--range", "0.2,0.2,0.5,0.5"},
                                             {"--title", "Title"},
                                             {"--fixture", "1"},
                                             {"--white", "3200"},
                                             {"--white", "3200,9000"},
                                             {"red", "--match", "6"},
                                             {"red", "--match", "6", "--io-mode", "RGB", "--onboard-curve", "2"}};
        QSet<QByteArray> pictures;
        for (const QStringList& variant : variants) {
            const Outcome outcome = succeed(QStringList{"plot", path("variant.png"), "--size", "300x300"} + variant);
            pictures.insert(contentOf(path("variant.png")));
        }
        QCOMPARE(pictures.size(), variants.size());
        const Outcome fromInput = run({"plot", path("variant.png"), "-", "--json"}, "red\ngo=lime\n");
        QCOMPARE(fromInput.json().value("points").toArray().size(), 2);
    }

    void fileIsReplacedWhole()
    {
        QVERIFY(ok(run({"plot", path("kept.png"), "--size", "100x100"})));
        const QByteArray before = contentOf(path("kept.png"));
        // A folder that cannot be written to is no hindrance to the superuser, one that is not there is.
        const Outcome outcome = run({"plot", path("nowhere/kept.png")});
        QCOMPARE(outcome.status, 1);
        QVERIFY2(outcome.err.startsWith("lxcolor: cannot write \""), qPrintable(outcome.err));
        QCOMPARE(run({"plot", path("kept.png"), "black"}).status, 2);
        QCOMPARE(contentOf(path("kept.png")), before);
        QCOMPARE(QDir(m_folder.path()).entryList({"kept*"}), QStringList("kept.png"));
    }

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(TestToolPlot)
#include "tst_toolplot.moc"
