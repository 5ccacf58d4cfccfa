// docs/fixture-on-the-bench.md, followed as it stands: its file is saved, its commands are run in their order, and what
// they print and leave behind is compared with the page.
#include "ToolSupport.h"

#include <QFileInfo>
#include <QImage>

namespace {

/// A block of the page between fences.
struct Block
{
    QString kind; ///< What stands behind the opening fence: "console", or a language and the name of a file.
    QStringList lines;
    int line = 0; ///< Of the page, from 1.
};

QVector<Block> blocksOf(const QString& page)
{
    QVector<Block> blocks;
    bool isInside = false;
    const QStringList lines = page.split('\n');
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].startsWith("```")) {
            isInside = !isInside;
            if (isInside)
                blocks.append({lines[i].mid(3), {}, i + 1});
        } else if (isInside) {
            blocks.last().lines << lines[i];
        }
    }
    return blocks;
}

} // namespace

class TestToolBench : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followedStepByStep()
    {
        QFile page(LXCOLOR_PAGE);
        QVERIFY(page.open(QIODevice::ReadOnly));
        int commands = 0;
        QStringList kinds;
        for (const Block& block : blocksOf(QString::fromUtf8(page.readAll()))) {
            const QString text = block.lines.join('\n');
            const QString database = QString::fromUtf8(m_folder.read("FixtureProfiles.xml"));
            if (block.kind == "console")
                commands += follow(block);
            else if (block.kind == "csv bench.csv")
                m_folder.write("bench.csv", (text + '\n').toUtf8());
            else if (block.kind == "xml FixtureProfiles.xml")
                QVERIFY2(!text.isEmpty() && database.contains(text), qPrintable(text + "\nis not in\n" + database));
            else
                QFAIL(qPrintable("a block of another kind: " + block.kind));
            kinds << block.kind;
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY(kinds.contains("csv bench.csv") && kinds.contains("xml FixtureProfiles.xml"));
        QVERIFY2(commands >= 8, qPrintable(QString::number(commands)));
        const QImage picture(m_folder.path("bench.png"));
        QVERIFY(picture.width() >= 600 && picture.height() >= 600);
    }

private:
    /// Runs the commands of a block; their number.
    int follow(const Block& block) const
    {
        int count = 0;
        for (int i = 0; i < block.lines.size();) {
            QStringList words = QProcess::splitCommand(block.lines[i].mid(2));
            const QString where = QStringLiteral("line %1: %2").arg(block.line + 1 + i).arg(block.lines[i]);
            if (!block.lines[i].startsWith("$ lxcolor ")) {
                QTest::qFail(qPrintable(where), __FILE__, __LINE__);
                return count;
            }
            QString expected;
            for (++i; i < block.lines.size() && !block.lines[i].startsWith("$ "); ++i)
                expected += block.lines[i] + '\n';
            words.removeFirst();
            const QString printed = output(words);
            ++count;
            if (!QTest::qCompare(printed, expected, qPrintable(where), "the page", __FILE__, __LINE__))
                return count;
        }
        return count;
    }

    /// What is printed, errors and all; with the exit status where that is not 0.
    QString output(const QStringList& arguments) const
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path(QString()));
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(program(), arguments);
        const Outcome outcome = finish(process);
        return outcome.out + (outcome.status == 0 ? QString() : QStringLiteral("status %1\n").arg(outcome.status));
    }

    Folder m_folder;
};

QTEST_APPLESS_MAIN(TestToolBench)
#include "tst_toolbench.moc"
