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
#include <QTextCodec>
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

    // Of a saved document nothing changes but the colours that have.
    void whatIsNotOursStays()
    {
        const QByteArray colorA = "<Color uid='{a}' mark=\"7\" name=\"A\"\n value = '#ff0000'><Note/></Color>";
        const QByteArray colorB = "\n   <Color uid=\"{b}\" name=\"B\" value=\"#00ff00\"/>";
        const QByteArray before = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
                                  "<!-- B\xfchne -->\n"
                                  "<Show version=\"2.5\">\n"
                                  " <Cue note=\"&lt;go> &amp; wait\">  two  spaces <![CDATA[<raw>]]></Cue>\n"
                                  " <ColorLibrary name=\"First\" mine=\"kept\">\n"
                                  "  " +
                                  colorA +
                                  "\n"
                                  "  <Color uid=\"{x}\" name=\"X\" value=\"aFuture;1;2\"/>\n"
                                  " </ColorLibrary>\n"
                                  " <Group>\n"
                                  "  <ColorLibrary name=\"Second\">" +
                                  colorB +
                                  "\n"
                                  "  </ColorLibrary>\n"
                                  " </Group>\n"
                                  " <?instruction stays?>\n"
                                  "</Show>\n";
        const QString path = write("theirs.xml", before);
        QVERIFY(m_window->openDocument(path));
        QCOMPARE(colorsOf("Project Swatches"), QStringList({"A", "B"}));
        click("B");
        QTest::keyClick(tree(), Qt::Key_Delete);
        type("cct", "4000");
        press("Add to Swatches");
        const QString name = QString::fromUtf8("\xd0\x96 \"\xc3\xa9'");
        LXColorLibrary::Instance()->rename("{a}", name, true);
        press(Qt::Key_S, Qt::ControlModifier);
        const QString added = LXColorLibrary::Instance()->getColorUids("Project Swatches").last();
        const QString value = LXColorLibrary::Instance()->get(added).aName();
        QByteArray expected = before;
        const QByteArray renamed =
            "<Color uid=\"{a}\" mark=\"7\" name=\"&#x416; &quot;\xe9'\" value=\"#ff0000\"><Note/></Color>";
        const QString element =
            "\n  <Color name=\"4000 K\" uid=\"%1\" value=\"%2\" originatingPreset=\"\" colorId=\"\"/>";
        expected.replace(colorB, "").replace(colorA, renamed + element.arg(added, value).toLatin1());
        QCOMPARE(contentOf(path), expected);
        QVERIFY(m_window->openDocument(path));
        QCOMPARE(colorsOf("Project Swatches"), QStringList({name, "4000 K"}));
    }

    void documentsOfOtherPrograms_data()
    {
        QTest::addColumn<QByteArray>("content");
        const QByteArray list = "<ColorLibrary name=\"L\">";
        const QByteArray paint =
            "<Color uid=\"{a}\" name=\"&#x1F3A8; paint\" value=\"#ff0000\"/></ColorLibrary></Show>";
        QTest::newRow("line ends of another system")
            << QByteArray("<Show>\r\n<T>a\r\nb</T>\r\n" + list + "\r\n" + paint + "\r\n");
        QTest::newRow("characters beyond 16 bits by number")
            << QByteArray("<Show><!-- &#128512; --><T a=\"&#x1F3A8;\">&#128512;</T>" + list + paint);
        QTest::newRow("such characters in an encoding without them")
            << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><Show>\xe9" + list + paint);
        QTest::newRow("UTF-8 with a mark") << QByteArray("\xef\xbb\xbf<Show>\xc3\xa9" + list + paint);
        QTest::newRow("16 bits a character")
            << QTextCodec::codecForName("UTF-16")->fromUnicode("<Show>\n" + list + "\n" + paint);
        QTest::newRow("a document type") << QByteArray("<!DOCTYPE Show SYSTEM '>'>\n<Show>\n" + list + paint);
        QTest::newRow("colours without a uid, or with the same")
            << QByteArray("<Show><ColorLibrary name=\"x\"><Color name=\"n\" value=\"#ff0000\" note=\"n\"><c/></Color>"
                          "<Color uid=\"{a}\" name=\"a\" value=\"#00ff00\"/></ColorLibrary><ColorLibrary name=\"y\">"
                          "<Color uid=\"{a}\" name=\"b\" value=\"#0000ff\" note=\"b\"/></ColorLibrary></Show>");
        QTest::newRow("a list that is empty") << QByteArray("<Show><ColorLibrary /></Show>");
    }

    // Opened, a colour added, saved, that undone, and saved again.
    void documentsOfOtherPrograms()
    {
        QFETCH(QByteArray, content);
        const QString path = write("others.xml", content);
        QVERIFY(m_window->openDocument(path));
        const QStringList names = colorsOf("Project Swatches");
        for (const QString& name : names)
            QVERIFY2(name.size() == 1 || name == QString::fromUtf8("\xf0\x9f\x8e\xa8 paint"), qPrintable(name));
        press("Add to Swatches");
        press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(contentOf(path) != content);
        const QString copy = write("copy.xml", contentOf(path));
        press(Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(contentOf(path), content);
        QVERIFY(m_window->openDocument(copy));
        QStringList all = colorsOf("Project Swatches"); // the new one in the first list
        QCOMPARE(all.removeAll(m_window->findChild<QSpinBox*>("cct")->text()), 1);
        QCOMPARE(all, names);
    }

    // A document and a palette, dropped on the tree and on a field.
    void droppedFiles()
    {
        const auto dropFile = [](const QString& path, QWidget* target) {
            QMimeData data;
            data.setUrls({QUrl::fromLocalFile(path)});
            data.setText(path);
            QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
            QCoreApplication::sendEvent(target, &enter);
            QDropEvent event({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
            event.setAccepted(false);
            QCoreApplication::sendEvent(target, &event);
            QVERIFY(enter.isAccepted() && event.isAccepted() && event.dropAction() == Qt::CopyAction);
        };
        dropFile(QString(LXCOLOR_SOURCE_DIR) + "/examples/show.xml", tree()->viewport());
        QTRY_COMPARE(titled(), QString("show.xml – Swatches"));
        press("Add to Swatches");
        QTRY_COMPARE(titled(), QString("show.xml* – Swatches"));
        answerWith(QMessageBox::Cancel);
        const QString palette = write("gels.gpl", "GIMP Palette\n# theirs\n255 0 0 a\n0 0 255 b\n");
        dropFile(palette, m_window->findChild<QLineEdit*>("swatchSearch"));
        QTRY_VERIFY(m_answered);
        QCOMPARE(titled(), QString("show.xml* – Swatches"));
        answerWith(QMessageBox::Discard);
        dropFile(palette, m_window.data());
        QTRY_COMPARE(titled(), QString("Untitled* – Swatches"));
        QCOMPARE(colorsOf("Project Swatches"), QStringList({"a", "b"}));
        activate();
        answer<QFileDialog>([](QFileDialog* dialog) { // has the name of the palette
            QTest::keyClick(dialog->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
        });
        press(Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(m_answered);
        QVERIFY(m_window->openDocument(file("gels.xml")));
        QCOMPARE(colorsOf("Project Swatches"), QStringList({"a", "b"}));

        write("gels.xml", "<Show>what another program wrote</Show>");
        activate();
        answerWith(QMessageBox::Cancel);
        press(Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(m_answered);
        QCOMPARE(contentOf(file("gels.xml")), QByteArray("<Show>what another program wrote</Show>"));
        activate();
        answerWith(QMessageBox::Save);
        press(Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(m_answered && contentOf(file("gels.xml")).contains("name=\"b\""));
    }

    void badFiles_data()
    {
        const Rows<QByteArray, QString> row;
        row("not closed", QByteArray("<Show>\n <Cue>\n</Show>"), "line 3, column");
        row("empty", "", "line 1");
        row("entities", QByteArray("<!DOCTYPE a [<!ENTITY b \"c\">]><a/>"), "entities");
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
