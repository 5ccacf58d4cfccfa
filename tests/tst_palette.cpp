// Palette files: what goes through each format and what it loses, files of other programs, and files with a fault.
#include "PaletteFormat.h"
#include "Support.h"

#include <QDataStream>

#include <limits>

using Id = PaletteFormat::Id;
Q_DECLARE_METATYPE(PaletteFormat::Id)

namespace {

QString asText(const Palette& palette)
{
    QString text;
    for (const Palette::List& list : palette.lists) {
        text += QStringLiteral("list [%1] %2\n").arg(list.name).arg(list.isUserList);
        for (const Palette::Entry& e : list.entries)
            text +=
                QStringLiteral("[%1] %2 [%3] [%4] [%5]\n").arg(e.name, e.value, e.uid, e.originatingPreset, e.vendorId);
    }
    return text;
}

/// The colours as others see them: list, name, 16-bit red, green and blue.
QStringList seen(const Palette& palette)
{
    QStringList all;
    for (const Palette::List& list : palette.lists)
        for (const Palette::Entry& e : list.entries)
            all << QStringLiteral("%1/%2 %3").arg(list.name, e.name, e.color().name());
    return all;
}

QString counted(const QVector<PaletteFormat::Remark>& remarks)
{
    QStringList all;
    for (const auto& remark : remarks)
        all << QStringLiteral("%1 %2").arg(PaletteFormat::name(remark.code)).arg(remark.count);
    return all.join(", ");
}

/// Everything that a palette can hold.
Palette everything()
{
    const QString hard = QString::fromUtf8(" \"a\",;#/*b*/\\ \xc3\xa9\xf0\x9f\x8e\xa8\r\n\t-->%1 ");
    return {{{"First & <last>",
              false,
              {{hard, "aRgb;1;0;#8000123456789abc", "{uid-1}", "Presets/" + hard, "L106"},
               {"", "aYxy;3;6;65535;0.800000;0.423400;0.399000", "{uid-2}", {}, {}},
               {"levels", "aNchannel;3;6;32768;65535;0;1;65534;1", {}, {}, {}}}},
             {"empty", true, {}},
             {hard, true, {{"plain", "aRgb;1;0;#ffff46464646b4b4", {}, {}, {}}, {"plain", "#102030", "{u}", {}, {}}}}}};
}

QByteArray bigEndian(std::initializer_list<quint64> words, int width = 2)
{
    QByteArray bytes;
    for (const quint64 word : words)
        for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
            bytes += static_cast<char>(word >> shift);
    return bytes;
}

QByteArray text16(const QString& text)
{
    QByteArray bytes;
    for (const QChar c : text + QChar(QChar::Null))
        bytes += bigEndian({c.unicode()});
    return bytes;
}

QByteArray aseHead(quint32 count) { return "ASEF" + bigEndian({1, 0}) + bigEndian({count}, 4); }

QByteArray aseBlock(quint16 type, const QByteArray& content)
{
    return bigEndian({type}) + bigEndian({static_cast<quint64>(content.size())}, 4) + content;
}

QByteArray aseColor(const QString& name, const char* space, const QVector<float>& values, int kind = 0)
{
    QByteArray content = bigEndian({static_cast<quint64>(name.size()) + 1}) + text16(name) + space;
    QDataStream stream(&content, QIODevice::Append);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
    for (const float value : values)
        stream << value;
    return aseBlock(1, content + bigEndian({static_cast<quint64>(kind)}));
}

QByteArray acoColor(std::initializer_list<quint64> words, const QString& name)
{
    return bigEndian(words) + bigEndian({static_cast<quint64>(name.size()) + 1}, 4) + text16(name);
}

} // namespace

class TestPalette : public QuietTest
{
    Q_OBJECT

private Q_SLOTS:
    void throughEveryFormat_data()
    {
        // format, what is lost, whether all else comes back to the letter
        const Rows<Id, QString, bool> row;
        row("gpl", Id::Gpl, "", true);
        row("css", Id::Css, "", true);
        row("csv", Id::Csv, "empty-list 1", true);
        row("document", Id::Document, "", true);
        row("ase", Id::Ase, "alpha 2, face 2, profile 2, uid 3, origin 1, vendor-id 1, user-list 1", false);
        row("aco", Id::Aco,
            "alpha 2, face 2, profile 2, uid 3, origin 1, vendor-id 1, lists 1, list-name 2, "
            "empty-list 1, user-list 1",
            false);
    }
    void throughEveryFormat()
    {
        const auto [format, lost, isWhole] = fetched<Id, QString, bool>();
        const Palette palette = everything();
        const PaletteFormat::Writing writing = PaletteFormat::write(palette, format);
        QVERIFY2(writing.isWritten, qPrintable(writing.error));
        QCOMPARE(counted(writing.remarks), lost);
        const PaletteFormat::Reading reading = PaletteFormat::read(writing.bytes, format, "loose");
        QVERIFY2(reading.isRead, qPrintable(reading.error.text));
        QCOMPARE(counted(reading.remarks), QString());
        Palette expected = palette;
        if (format == Id::Csv || format == Id::Aco)
            expected.lists.removeAt(1);
        if (format == Id::Aco) {
            expected.lists[0].entries += expected.lists[1].entries;
            expected.lists.removeLast();
            expected.lists[0].name = "loose";
        }
        if (isWhole)
            QCOMPARE(asText(reading.palette), asText(expected));
        QCOMPARE(seen(reading.palette), seen(expected));
    }

    // A half of a character pair, a zero, a control character: no format may end its name or its file there.
    void namesThatAFormatCannotHold()
    {
        const QString bad = QString("a") + QChar(0xd800) + QChar(0) + QChar(1) + "b";
        const Palette palette{{{"list", true, {{bad, "aRgb;1;0;#ffff000000000000", {}, {}, {}}}}}};
        for (const Id format : PaletteFormat::all()) {
            const auto writing = PaletteFormat::write(palette, format);
            QVERIFY2(counted(writing.remarks).contains("name "), qPrintable(PaletteFormat::name(format)));
            const auto reading = PaletteFormat::read(writing.bytes, format, "list");
            QVERIFY2(reading.isRead, qPrintable(reading.error.text));
            const QString name = reading.palette.lists[0].entries[0].name;
            QVERIFY2(name.startsWith('a') && name.endsWith('b'), qPrintable(name));
        }
    }

    void filesOfOthers_data()
    {
        const Rows<Id, QByteArray, QStringList, QString> row;
        row("gpl, columns, comments, no names", Id::Gpl,
            "GIMP Palette\r\nName: Gels\r\nColumns: 4\r\n# by hand\r\n 70 130 180\tsteel # blue\r\n"
            "\r\n255 0 0\r\n",
            {"Gels/steel # blue #46468282b4b4", "Gels/ #ffff00000000"}, "other 2");
        row("gpl, not UTF-8", Id::Gpl, "GIMP Palette\n1 2 3 caf\xe9\n",
            {QString::fromUtf8("loose/caf\xc3\xa9 #010102020303")}, "encoding 1");
        row("gpl, numbers and a name edited, a comment left behind", Id::Gpl,
            "GIMP Palette\n# lxcolor {\"shown\":\"1 2 3\",\"value\":\"aYxy;1;0;65535;1;0.3;0.3\"}\n4 5 6 a\n"
            "# lxcolor {\"shown\":\"1 2 3\",\"value\":\"x\"}\n",
            {"loose/a #040405050606"}, "edited 1, comment 1");
        row("gpl, the name of a list edited, which is that of the first", Id::Gpl,
            "GIMP Palette\nName: mine\n# lxcolor-list {\"name\":\" a\\nb \",\"userList\":true}\n1 2 3 a\n"
            "# lxcolor-list {\"name\":\"c\",\"userList\":true}\n1 2 3 d\n",
            {"mine/a #010102020303", "c/d #010102020303"}, "");
        row("csv, semicolons, heads in any order", Id::Csv,
            "\xef\xbb\xbf"
            "Blue;note;NAME;red;green\n3;;\"a;\"\"b\"\"\";1;2\n\n",
            {"loose/a;\"b\" #010102020303"}, "other 1");
        row("csv, value and numbers differ", Id::Csv, "value,red,green,blue\n\"#102030\",1,2,3\nnothing,1,2,3\n",
            {"loose/ #101020203030"}, "unreadable-value 1, edited 1");
        row("csv, another alpha than that of the value", Id::Csv, "value,alpha\n#ff0000,128\n#80ff0000,128\n#00ff00,\n",
            {"loose/ #ffff00000000", "loose/ #ffff00000000", "loose/ #0000ffff0000"}, "edited 1");
        row("css, all ways to write a colour", Id::Css,
            "@import url(\"a;b.css\"); /* } */ :root, .a{--a:#f00;--b: #1234 ;color: red;--c:rgb(0 128 255/50%);"
            "--d: RGBA(100%,0,0,.5);--gap: 4px}\n@media print { a { --e:steelblue } }",
            {"loose/a #ffff00000000", "loose/b #111122223333", "loose/c #00008080ffff", "loose/d #ffff00000000",
             "loose/e #46468282b4b4"},
            "other 3");
        row("css, colours among others or made of other properties", Id::Css,
            "a{--a:rgba(var(--b),.5);--b: #fff 0 1px 2px;--c:rgb(255 0 0), rgb(1 2 3);"
            "--d:rgb(none 0 255)}",
            {"loose/d #00000000ffff"}, "other 3");
        row("document, a project", Id::Document,
            "<show><a/><ColorLibrary name='l'><Color name='r' value='red'/>"
            "<Color name='x' value=''/></ColorLibrary></show>",
            {"l/r #ffff00000000"}, "unreadable-value 1, other 2");

        // L*a*b* of white, and of the red of sRGB, under D50.
        const QByteArray ase =
            aseColor("loose", "RGB ", {1.0F, 0.5F, -0.25F}, 1) + aseBlock(0xc001, bigEndian({2}) + text16("G")) +
            aseColor("white", "LAB ", {1.0F, 0.0F, 0.0F}) + aseColor("red", "LAB ", {0.5429F, 80.81F, 69.89F}) +
            aseColor("ink", "CMYK", {0.0F, 0.5F, 1.0F, 0.2F}) + aseColor("gray", "Gray", {0.2F}) +
            aseColor("new", "XYZW", {}) + aseBlock(0xc002, {}) + aseBlock(0x1234, "abc");
        row("ase, all spaces", Id::Ase, aseHead(9) + ase + "more",
            {"loose/loose #ffff80000000", "G/white #ffffffffffff", "G/red #fffd00010000", "G/ink #cccc66660000",
             "G/gray #333333333333"},
            "cmyk 1, lab 2, cut 1, spot 1, unknown-space 1, other 2");
        const QByteArray aco = acoColor({1, 21845, 65535, 32768, 0}, "hsb") + // 120 degrees
                               acoColor({2, 65535, 32768, 0, 65535}, "ink") + acoColor({7, 10000, 0, 0, 0}, "lab") +
                               acoColor({8, 5000, 0, 0, 0}, "gray") + acoColor({9, 0, 5000, 10000, 0}, "wide") +
                               acoColor({3, 0, 0, 0, 0}, "custom");
        row("aco, version 2, all spaces", Id::Aco, bigEndian({2, 6}) + aco,
            {"loose/hsb #000080000000", "loose/ink #ffff80000000", "loose/lab #ffffffffffff",
             "loose/gray #800080008000", "loose/wide #ffff80000000"},
            "cmyk 2, lab 1, unknown-space 1");
        row("aco, version 1 alone", Id::Aco, bigEndian({1, 1, 0, 65535, 1, 2, 0}), {"loose/ #ffff00010002"}, "");
    }
    void filesOfOthers()
    {
        const auto [format, content, expected, remarks] = fetched<Id, QByteArray, QStringList, QString>();
        const PaletteFormat::Reading reading = PaletteFormat::read(content, format, "loose");
        QVERIFY2(reading.isRead, qPrintable(reading.error.text));
        QCOMPARE(seen(reading.palette), expected);
        QCOMPARE(counted(reading.remarks), remarks);
        Messages::take(); // of names that are no colours
    }

    // One defect each.
    void faults_data()
    {
        // place: line:column, or a byte
        const Rows<Id, QByteArray, QString, QString> row;
        const QByteArray gpl = "GIMP Palette\n";
        row("gpl: empty", Id::Gpl, "", "1:1", "first line");
        row("gpl: another file", Id::Gpl, "GIMP Gradient\n", "1:1", "first line");
        row("gpl: two numbers", Id::Gpl, gpl + "1 2\n", "2:4", "line ends");
        row("gpl: number above 255", Id::Gpl, gpl + "#\n1 256 3 a\n", "3:3", "0 to 255");
        row("gpl: a word for a number", Id::Gpl, gpl + "1 2 blue\n", "2:5", "0 to 255");
        row("csv: empty", Id::Csv, "\n\n", "1:1", "empty");
        row("csv: no colours", Id::Csv, "name,red,green\n", "1:1", "heads");
        row("csv: a head twice", Id::Csv, "value,Name,name\n", "1:12", "second column");
        row("csv: a cell too few", Id::Csv, "name,value\n\"a\nb\",red\nc\n", "4:1", "is 1, that");
        row("csv: quotes open", Id::Csv, "name,value\n a,\"red\n\n", "2:4", "not closed");
        row("csv: text behind quotes", Id::Csv, "name,value\n\"a\"b,red\n", "2:4", "behind");
        row("csv: number out of range", Id::Csv, "red,green,blue\n1,-2,3\n", "2:3", "0 to 255");
        row("css: block open", Id::Css, ":root {\n a {\n}", "1:7", "not closed");
        row("css: block closed twice", Id::Css, "a {}\n }", "2:2", "not opened");
        row("css: comment open", Id::Css, "a{}\n /* a", "2:2", "not closed");
        row("css: string open", Id::Css, "a{--b:\"\n}", "1:7", "not closed");
        row("css: five digits", Id::Css, "a{\n  --b: #12345;}", "2:3", "hexadecimal");
        row("css: two numbers", Id::Css, "a{--b: rgb(1 2)}", "1:3", "expected");
        row("document: not closed", Id::Document, "<ColorLibraryList>\n<ColorLibrary name='a'>", "2:23", "well-formed");
        row("document: entities", Id::Document, "<!DOCTYPE a [<!ENTITY e 'ee'>]><a/>", "1:31", "Entities");
        row("document: too deep", Id::Document, QByteArray("<a>").repeated(2000), "1:3075", "nested");
        row("ase: another file", Id::Ase, "8BPS", "0", "ASEF");
        row("ase: version 2", Id::Ase, "ASEF" + bigEndian({2, 0, 0, 0}), "4", "2.0");
        row("ase: 4294967295 blocks of which there is one", Id::Ase, aseHead(0xffffffff) + aseBlock(7, "abc"), "21",
            "ends");
        row("ase: a block of 4294967295 bytes", Id::Ase, aseHead(1) + bigEndian({1, 0xffff, 0xffff, 0}), "18", "ends");
        row("ase: a name beyond its block", Id::Ase,
            aseHead(1) + aseBlock(1, bigEndian({0xffff, 'a', 0})) + QByteArray(200000, 'x'), "20", "name");
        row("ase: a colour beyond its block", Id::Ase, aseHead(1) + aseBlock(1, bigEndian({1, 0}) + "RGB \1\2"), "26",
            "ends");
        row("ase: not a number", Id::Ase, aseHead(1) + aseColor("a", "Gray", {std::numeric_limits<float>::quiet_NaN()}),
            "28", "not a number");
        row("ase: group in group", Id::Ase,
            aseHead(2) + aseBlock(0xc001, bigEndian({1, 0})) + aseBlock(0xc001, bigEndian({1, 0})), "22", "within");
        row("ase: group not closed", Id::Ase, aseHead(1) + aseBlock(0xc001, bigEndian({1, 0})), "22", "no end");
        row("ase: end without a group", Id::Ase, aseHead(1) + aseBlock(0xc002, {}), "12", "not begun");
        row("aco: another file", Id::Aco, bigEndian({3, 0}), "0", "version");
        row("aco: 65535 colours of which there are none", Id::Aco, bigEndian({1, 65535}), "4", "ends");
        row("aco: a name of 4294967295 characters", Id::Aco, bigEndian({2, 1, 0, 1, 2, 3, 0, 0xffff, 0xffff, 'a', 0}),
            "18", "name");
        row("aco: another section than version 2", Id::Aco, bigEndian({1, 0, 5, 0}), "4", "version 2");
    }
    void faults()
    {
        const auto [format, content, expectedPlace, text] = fetched<Id, QByteArray, QString, QString>();
        const PaletteFormat::Reading reading = PaletteFormat::read(content, format, "loose");
        QVERIFY(!reading.isRead);
        QVERIFY(reading.palette.lists.isEmpty());
        const auto& error = reading.error;
        const QString place = error.offset >= 0 ? QString::number(error.offset)
                                                : QStringLiteral("%1:%2").arg(error.line).arg(error.column);
        QCOMPARE(place, expectedPlace);
        QVERIFY2(error.text.contains(text), qPrintable(error.text));
    }

    // A file that was cut anywhere is refused, or is a whole one of its format by chance: text that may end there.
    void cutFiles()
    {
        for (const Id format : PaletteFormat::all()) {
            const QByteArray whole = PaletteFormat::write(everything(), format).bytes;
            const int size = everything().size();
            for (int length = 0; length < whole.size(); ++length) {
                const auto reading = PaletteFormat::read(whole.left(length), format, "loose");
                const bool isText = format == Id::Gpl || format == Id::Csv;
                const bool isFirstSection = format == Id::Aco && reading.palette.size() == size;
                const bool isComplete = whole.mid(length).trimmed().isEmpty();
                QVERIFY2(!reading.isRead || isText || isFirstSection || isComplete ||
                             (format == Id::Css && reading.palette.lists.isEmpty()),
                         qPrintable(PaletteFormat::name(format) + QString(" of %1 bytes").arg(length)));
            }
        }
        Messages::take(); // of values that were cut
    }

    void moreColoursThanAFormatCounts()
    {
        Palette palette{{{"list", true, {}}}};
        palette.lists[0].entries.fill({"a", "aRgb;1;0;#ffff000000000000", {}, {}, {}}, 65536);
        const auto writing = PaletteFormat::write(palette, Id::Aco);
        QVERIFY(!writing.isWritten && writing.bytes.isEmpty());
        QVERIFY2(writing.error.contains("65536") && writing.error.contains("65535"), qPrintable(writing.error));
        QVERIFY(PaletteFormat::write(palette, Id::Css).isWritten); // many colours of one name
    }

    void formatsOfNames()
    {
        for (const Id format : PaletteFormat::all()) {
            Id found = format == Id::Gpl ? Id::Css : Id::Gpl;
            QVERIFY(PaletteFormat::fromName(PaletteFormat::name(format), &found));
            QCOMPARE(found, format);
        }
        Id found = Id::Gpl;
        QVERIFY(PaletteFormat::fromFileName("a.b/Show.LXColors", &found));
        QCOMPARE(found, Id::Document);
        QVERIFY(!PaletteFormat::fromFileName("gpl", &found) && !PaletteFormat::fromFileName("a.gpl.bak", nullptr));
    }
};

QTEST_APPLESS_MAIN(TestPalette)
#include "tst_palette.moc"
