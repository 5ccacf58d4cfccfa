// The window on the swatches, from an empty project to a saved one and back, by mouse and keys.

#include "Files.h"
#include "LXColorLibrary.h"
#include "MainWindow.h"
#include "Rows.h"
#include "Session.h"
#include "TreeUser.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDomDocument>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

class TestLxSwatches : public QObject, TreeUser
{
    Q_OBJECT

    QTreeView* tree() const override { return m_window->findChild<QTreeView*>("swatchTree"); }
    /// The colours that are seen below a list.
    QStringList colorsOf(const QString& list) const
    {
        const QModelIndex index = row(list);
        QStringList names;
        for (int i = 0; i < tree()->model()->rowCount(index); ++i)
            names << tree()->model()->index(i, 0, index).data().toString();
        return names;
    }
    void press(int key, Qt::KeyboardModifiers modifiers) const
    {
        QTest::keyClick(m_window.data(), Qt::Key(key), modifiers);
    }
    void press(const QString& text) const
    {
        for (QPushButton* button : m_window->findChildren<QPushButton*>()) {
            if (button->text() == text)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        QFAIL(qPrintable(text));
    }
    void choose(const QString& menuText, const QString& entry) const
    {
        for (QAction* menu : m_window->menuBar()->actions()) {
            for (QAction* action : menu->menu()->actions()) {
                if (menu->text().remove('&') == menuText && action->text().remove('&') == entry)
                    return action->trigger();
            }
        }
        QFAIL(qPrintable(entry));
    }
    void type(const char* field, const QString& text) const
    {
        auto* box = m_window->findChild<QAbstractSpinBox*>(QLatin1String(field));
        QVERIFY(box);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Return);
    }
    /// Answers the dialog that what follows opens.
    template <typename Dialog>
    void answer(const std::function<void(Dialog*)>& how)
    {
        m_answered = false;
        auto* timer = new QTimer(m_window.data());
        connect(timer, &QTimer::timeout, this, [=] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog)
                return;
            timer->deleteLater();
            m_answered = true;
            how(dialog);
        });
        timer->start(20);
    }
    void answerWithFile(const QString& path)
    {
        answer<QFileDialog>([path](QFileDialog* dialog) {
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            name->clear();
            QTest::keyClicks(name, path);
            QTest::keyClick(name, Qt::Key_Return);
        });
    }
    void answerWith(QMessageBox::StandardButton button)
    {
        answer<QMessageBox>([button](QMessageBox* box) { QTest::mouseClick(box->button(button), Qt::LeftButton); });
    }
    QString titled() const
    {
        QString title = m_window->windowTitle();
        return title.replace("[*]", m_window->isWindowModified() ? "*" : "");
    }
    QString file(const QString& name) const { return m_home.filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const { return writeFile(file(name), bytes); }
    void activate() const
    {
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.data()));
    }
    void start()
    {
        startLibrary();
        m_window.reset(new MainWindow(Appearance::Light));
        m_window->restoreSettings();
        m_window->show();
        activate();
    }
    void stop()
    {
        m_window.reset();
        LXColorLibrary::cleanup();
    }

private Q_SLOTS:
    void initTestCase()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
        qputenv("XDG_DATA_HOME", m_home.path().toLocal8Bit());
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, m_home.path());
        QApplication::setOrganizationName("LXColor");
        QApplication::setApplicationName("lxswatches");
        QApplication::setApplicationDisplayName("Swatches");
        setAppearance(Appearance::Light);
    }
    void init() { start(); }
    void cleanup()
    {
        stop();
        QSettings().clear();
        QDir(m_home.path()).removeRecursively();
        QDir().mkpath(m_home.path());
    }

    // A show is made, saved, closed and opened again.
    void aShow()
    {
        QCOMPARE(titled(), QString("Untitled – Swatches"));
        click("Project Swatches");
        type("cct", "5600");
        press("Add to Swatches");
        type("cct", "2700");
        type("tint", "10");
        press("Add to Swatches");
        QCOMPARE(colorsOf("Project Swatches"), QStringList({"5600 K", "2700 K, tint 10 %"}));
        QTRY_COMPARE(titled(), QString("Untitled* – Swatches"));

        QMimeData color;
        color.setColorData(QColor(30, 80, 220));
        QVERIFY(drop(&color, "Project Swatches"));
        QCOMPARE(thumbnail("#1e50dc"), QColor(30, 80, 220));
        click("#1e50dc");
        QTest::keyClick(tree(), Qt::Key_F2);
        enterName("Cyc");
        QTRY_COMPARE(colorsOf("Project Swatches").last(), QString("Cyc"));

        answerWithFile(file("show")); // the ending is added
        press(Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(m_answered);
        QCOMPARE(titled(), QString("show.xml – Swatches"));
        QDomDocument saved;
        QVERIFY(saved.setContent(contentOf(file("show.xml"))));
        QCOMPARE(saved.elementsByTagName("Color").size(), 3);
        QCOMPARE(saved.elementsByTagName("Color").at(2).toElement().attribute("name"), QString("Cyc"));

        activate(); // Nobody does when the dialog goes, on the offscreen platform.
        click("5600 K");
        QTest::keyClick(tree(), Qt::Key_Delete);
        QTRY_COMPARE(titled(), QString("show.xml* – Swatches"));
        press(Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(titled(), QString("show.xml – Swatches")); // as saved again
        press(Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(titled(), QString("show.xml* – Swatches"));
        answerWith(QMessageBox::Cancel);
        QVERIFY(!m_window->close() && m_answered);
        answerWith(QMessageBox::Discard);
        QVERIFY(m_window->close() && m_answered);

        stop();
        start();
        QVERIFY(colorsOf("Project Swatches").isEmpty());
        answerWithFile(file("show.xml"));
        press(Qt::Key_O, Qt::ControlModifier);
        QTRY_VERIFY(m_answered);
        QCOMPARE(colorsOf("Project Swatches"), QStringList({"5600 K", "2700 K, tint 10 %", "Cyc"}));
        QCOMPARE(thumbnail("Cyc"), QColor(30, 80, 220));
        QCOMPARE(titled(), QString("show.xml – Swatches"));
    }

    // What is chosen at the left is seen at the right; what is picked replaces it.
    void swatchesOnFixtures()
    {
        QVERIFY(m_window->openDocument(QString(LXCOLOR_SOURCE_DIR) + "/examples/show.xml"));
        auto* sentence = m_window->findChild<QLabel*>("sentence");
        auto* fixture = m_window->findChild<QComboBox*>("fixture");
        fixture->setFocus();
        while (fixture->currentText() != "PixelNode RGB")
            QTest::keyClick(fixture, fixture->currentIndex() + 1 < fixture->count() ? Qt::Key_Down : Qt::Key_Home);
        click("Cyclorama blue");
        QVERIFY2(sentence->text().contains("PixelNode RGB"), qPrintable(sentence->text()));
        const QString before = m_window->findChild<QLabel*>("dmxBytes")->text();
        click("Rose");
        QVERIFY(m_window->findChild<QLabel*>("dmxBytes")->text() != before);
        QVERIFY(m_window->findChild<QLabel*>("gamutSentence")->text().contains("PixelNode RGB"));
        type("cct", "6500");
        press("Replace Swatch");
        QCOMPARE(LXColorLibrary::Instance()->get("{5c3c5c1e-6d0a-4a52-9a39-2f6a4b1c0a06}").spec(), LXColor::Yxy);
        const QColor white = thumbnail("Rose");
        QVERIFY2(white.saturation() < 40 && white.value() > 220, qPrintable(white.name()));
        click("2000 K Candle");
        press("Replace Swatch"); // is off for presets
        QCOMPARE(colorsOf("White Points").first(), QString("2000 K Candle"));
    }

    // User lists are the library's, whatever project is open; they and the look of the window are there the next time.
    void staysForTheNextTime()
    {
        press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        enterName("My gels");
        QTRY_VERIFY(row("My gels").isValid());
        QMimeData text;
        text.setText("#ff8000\n#00ff80");
        QVERIFY(drop(&text, "My gels"));
        QTRY_COMPARE(colorsOf("My gels"), QStringList({"#ff8000", "#00ff80"}));
        QCOMPARE(titled(), QString("Untitled – Swatches")); // the project has not changed
        click("White Points");
        QTest::keyClick(tree(), Qt::Key_Return); // folds it
        choose("View", "Dark");
        QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 60);
        QVERIFY(m_window->grab().toImage().pixelColor(3, m_window->height() - 3).lightness() < 60);
        m_window->resize(1200, 720);
        QVERIFY(m_window->close());
        stop();
        start();
        QCOMPARE(colorsOf("My gels"), QStringList({"#ff8000", "#00ff80"}));
        QVERIFY(rows().contains("White Points") && !rows().contains("2000 K Candle"));
        QCOMPARE(m_window->size(), QSize(1200, 720));
        QVERIFY(QSettings().value("dark").toBool());
        setAppearance(Appearance::Light);
    }

    void coloursStayInTheirSections()
    {
        const QByteArray value = "\" value=\"#ff0000\"/>";
        const QByteArray before = "<Show><ColorLibrary name=\"First\"><Color uid=\"{a}\" name=\"A" + value +
                                  "<Color uid=\"{x}\" name=\"X\" value=\"aFuture;1;2\"/></ColorLibrary><Group>"
                                  "<ColorLibrary name=\"Second\"><Color uid=\"{b}\" name=\"B" +
                                  value + "<Color uid=\"{c}\" name=\"C" + value + "</ColorLibrary></Group></Show>";
        const QString path = write("sections.xml", before);
        QVERIFY(m_window->openDocument(path));
        QCOMPARE(colorsOf("Project Swatches"), QStringList({"A", "B", "C"}));
        click("B");
        QTest::keyClick(tree(), Qt::Key_Delete);
        click("C");
        QTest::keyClick(tree(), Qt::Key_F2);
        enterName("D");
        type("cct", "4000");
        press("Add to Swatches");
        press(Qt::Key_S, Qt::ControlModifier);
        QDomDocument document;
        QVERIFY(document.setContent(contentOf(path)));
        const auto names = [&](int list) {
            QStringList texts;
            const QDomNode section = document.elementsByTagName("ColorLibrary").at(list);
            for (QDomElement e = section.firstChildElement(); !e.isNull(); e = e.nextSiblingElement())
                texts << e.attribute("name");
            texts.sort();
            return texts;
        };
        QCOMPARE(names(0), QStringList({"4000 K", "A", "X"})); // X cannot be read as a colour
        QCOMPARE(names(1), QStringList("D"));
    }

    void documentsOfOtherPrograms_data()
    {
        const Rows<QByteArray, QList<QByteArray>> row; // the document, and what stays in it
        const QByteArray list = "<ColorLibrary name=\"L\">";
        row("what is not ours, in an encoding of its own",
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<!-- B\xfchne -->\n<Show version=\"2.5\">\n"
            " <Cue note=\"&lt;go&gt; &amp; wait\">  two  spaces <![CDATA[<raw>]]></Cue>\n"
            " <ColorLibrary name=\"First\" mine=\"kept\">\n"
            "  <Color uid=\"{a}\" name=\"A\" value=\"#ff0000\" mark=\"7\"><Note/></Color>\n"
            "  <Color uid=\"{x}\" name=\"X\" value=\"aFuture;1;2\"/>\n </ColorLibrary>\n"
            " <?instruction stays?>\n</Show>\n",
            {"<!-- B\xfchne -->", ">  two  spaces <![CDATA[<raw>]]></Cue>", "&amp; wait", "mine=\"kept\"", "mark=\"7\"",
             "<Note/>", "aFuture;1;2", "<?instruction stays?>", "encoding='ISO-8859-1'"});
        row("line ends of another system", "<Show>\r\n<T>a\r\nb</T>\r\n" + list + "</ColorLibrary>\r\n</Show>",
            {"<T>a\r\nb</T>\r\n"});
        row("characters beyond 16 bits by number",
            "<Show><!-- &#128512; --><T a=\"&#x1F3A8;\">&#128512;</T><![CDATA[&#128512;]]>" + list +
                "<Color uid=\"{a}\" name=\"&#x1F3A8; paint\" value=\"#ff0000\"/></ColorLibrary></Show>",
            {"<!-- &#128512; -->", "<T a=\"\xf0\x9f\x8e\xa8\">\xf0\x9f\x98\x80</T>", "<![CDATA[&#128512;]]>",
             "\xf0\x9f\x8e\xa8 paint"});
        row("such characters in an encoding without them",
            "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Show>\xe9" + list +
                "<Color uid=\"{a}\" name=\"&#x1F3A8;\" value=\"#ff0000\"/></ColorLibrary></Show>",
            {"UTF-8", "\xc3\xa9", "\xf0\x9f\x8e\xa8"});
        row("colours without a uid, or with the same",
            "<Show><ColorLibrary name=\"x\"><Color name=\"n\" value=\"#ff0000\" note=\"n\"><c/></Color>"
            "<Color uid=\"{a}\" name=\"a\" value=\"#00ff00\"/></ColorLibrary><ColorLibrary name=\"y\">"
            "<Color uid=\"{a}\" name=\"b\" value=\"#0000ff\" note=\"b\"/></ColorLibrary></Show>",
            {"note=\"n\"", "<c/>", "note=\"b\"", "name=\"a\"", "name=\"b\""});
    }

    // Opened and saved twice, a colour deleted, saved, that undone, and saved again: what is not ours is the same but
    // for the quotes of attributes.
    void documentsOfOtherPrograms()
    {
        const auto [content, kept] = fetched<QByteArray, QList<QByteArray>>();
        const QString path = write("others.xml", content);
        const auto checkSaved = [&, content = content, kept = kept] {
            press(Qt::Key_S, Qt::ControlModifier);
            const QByteArray saved = contentOf(path);
            QVERIFY(QDomDocument().setContent(saved));
            for (const QByteArray& text : kept)
                QVERIFY2(saved.contains(text), text + '\n' + saved);
            const auto plain = [](QByteArray text) { return text.replace('\'', '"').replace("&gt;", ">"); };
            for (const QByteArray& line : plain(content).split('\n')) {
                if (!line.contains("<Color"))
                    QVERIFY2(plain(saved).contains(line), line + '\n' + saved);
            }
        };
        QVERIFY(m_window->openDocument(path));
        const QStringList names = colorsOf("Project Swatches");
        checkSaved();
        const QByteArray once = contentOf(path);
        QVERIFY(m_window->openDocument(path));
        checkSaved();
        QCOMPARE(contentOf(path), once);
        if (!names.isEmpty()) {
            click(names.last());
            QTest::keyClick(tree(), Qt::Key_Delete);
            press(Qt::Key_S, Qt::ControlModifier);
            QVERIFY(contentOf(path) != once);
            press(Qt::Key_Z, Qt::ControlModifier);
        }
        checkSaved();
        QVERIFY(m_window->openDocument(path));
        QCOMPARE(colorsOf("Project Swatches"), names);
    }

    void badFiles_data()
    {
        const Rows<QByteArray, QString> row;
        row("not closed", "<Show>\n <Cue>\n</Show>", "line 3, column");
        row("empty", "", "line 1");
        row("entities", "<!DOCTYPE a [<!ENTITY b \"c\">]><a/>", "entities");
        row("deep", QByteArray("<a>").repeated(5000), "nested too deeply");
        row("no text", QByteArray("\x00\x01\x02", 3), "line 1");
    }
    void badFiles()
    {
        const auto [bytes, complaint] = fetched<QByteArray, QString>();
        QVERIFY(m_window->openDocument(QString(LXCOLOR_SOURCE_DIR) + "/examples/show.xml"));
        const QStringList before = rows();
        QString text;
        answer<QMessageBox>([&text](QMessageBox* box) {
            text = box->text();
            QTest::keyClick(box, Qt::Key_Escape);
        });
        QVERIFY(!m_window->openDocument(write("bad.xml", bytes)) && m_answered);
        QVERIFY2(text.contains(complaint) && text.contains("bad.xml"), qPrintable(text));
        QCOMPARE(rows(), before);
        QCOMPARE(titled(), QString("show.xml – Swatches"));
    }

    void cannotBeSaved()
    {
        QVERIFY(m_window->openDocument(QString(LXCOLOR_SOURCE_DIR) + "/examples/show.xml"));
        click("Rose");
        QTest::keyClick(tree(), Qt::Key_Delete);
        QDir().mkpath(file("folder.xml"));
        QString text;
        answer<QFileDialog>([this, &text](QFileDialog* dialog) {
            answer<QMessageBox>([&text](QMessageBox* box) {
                text = box->text();
                QTest::keyClick(box, Qt::Key_Escape);
            });
            auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
            name->clear();
            QTest::keyClicks(name, file("no such folder/show.xml"));
            QTest::keyClick(name, Qt::Key_Return);
        });
        press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY(!text.isEmpty());
        QVERIFY(m_window->isWindowModified() || titled().contains('*'));
        answerWith(QMessageBox::Discard);
        m_window->close();
    }

    // The program as it is started, in a picture: dark is dark, and at twice the scale it has twice the pixels.
    void program()
    {
        const auto picture = [this](const QStringList& options, const QString& scale) {
            QProcess process;
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert("QT_QPA_PLATFORM", "offscreen");
            environment.insert("QT_ENABLE_HIGHDPI_SCALING", "0");
            environment.insert("QT_SCALE_FACTOR", scale);
            process.setProcessEnvironment(environment);
            process.start(LXCOLOR_PROGRAM, QStringList({"--screenshot", file("picture.png")}) + options +
                                               QStringList(QString(LXCOLOR_SOURCE_DIR) + "/examples/show.xml"));
            const bool isDone = process.waitForFinished(60000) && process.exitCode() == 0;
            return isDone ? QImage(file("picture.png")) : QImage();
        };
        const QImage light = picture({}, "1");
        const QImage dark = picture({"--dark"}, "2");
        QVERIFY(!light.isNull());
        QCOMPARE(dark.size(), light.size() * 2);
        QVERIFY(light.pixelColor(5, light.height() - 5).lightness() > 200);
        QVERIFY(dark.pixelColor(5, dark.height() - 5).lightness() < 60);
    }

private:
    QTemporaryDir m_home;
    QScopedPointer<MainWindow> m_window;
    bool m_answered = false;
};

QTEST_MAIN(TestLxSwatches)
#include "tst_lxswatches.moc"
