// The swatch library under a view, where changes come in great numbers or without a word; what is done in a view is
// tested with SwatchView.

#include "LibrarySupport.h"

#include <QApplication>
#include <QPixmap>
#include <QSortFilterProxyModel>
#include <QTreeView>

namespace {

class SwatchView : public QTreeView
{
public:
    explicit SwatchView(LXColorLibrary* library)
    {
        setModel(library);
        setRootIndex(library->rootIndex());
        setDragEnabled(true);
        setSelectionMode(ExtendedSelection);
        resize(300, 300);
        show();
        expandAll();
        paint();
    }
    void paint() { grab(); }
    using QTreeView::selectedIndexes;
    QStringList visibleRows() const
    {
        QStringList rows;
        for (QModelIndex index = indexAt({5, 5}); index.isValid(); index = indexBelow(index))
            rows << index.data().toString();
        return rows;
    }
};

QPixmap thumbnail(const LXColor&) { return QPixmap(3, 2); }

} // namespace

class TestLibraryViews : public LibraryTest
{
    Q_OBJECT

private Q_SLOTS:
    void batchesAndRemovals()
    {
        lib()->init(true, true, true);
        lib()->createColorList("Mine", true);
        SwatchView view(lib());
        lib()->setEditingMultipleColors(true);
        for (int i = 0; i < 50; ++i)
            lib()->createColorWithName(rgb(i, 0, 0), "Red", QString("{%1}").arg(i), "Mine", "");
        lib()->rename("{3}", "Third", true);
        lib()->setEditingMultipleColors(false);
        view.expandAll();
        view.scrollToBottom();
        view.selectAll();
        view.paint();
        for (int i = 0; i < 50; i += 2)
            lib()->remove(QString("{%1}").arg(i));
        view.paint();
        QCOMPARE(view.model()->rowCount(list("Mine")), 25);
        lib()->removeRows(1, 2, lib()->rootIndex());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        view.paint();
        QCOMPARE(view.visibleRows(), QStringList("Explicit Colors"));
        QVERIFY(view.selectedIndexes().size() <= 2);
    }

    void thumbnails()
    {
        const QString black = QStringLiteral("aRgb;1;0;#ffff000000000000");
        lib()->init(true, true, true);
        lib()->createColor(rgb(1, 1, 1), "plain", "L", "", "");
        QVERIFY(!lib()->canGeneratePixmap() && lib()->generatePixmap(rgb(1, 1, 1)).isNull());
        lib()->setThumbnailGenerator(thumbnail);
        QCOMPARE(lib()->generatePixmap(rgb(1, 1, 1)).size(), QSize(3, 2));
        lib()->createColor(rgb(1, 1, 1), "icon", "L", "", "");
        lib()->get(black);
        const auto icon = [&](const QModelIndex& index) {
            return index.data(Qt::DecorationRole).value<QPixmap>().size();
        };
        QCOMPARE(icon(lib()->getIndexOfUid("icon")), QSize(3, 2));
        QCOMPARE(icon(lib()->getIndexOfUid("plain")), QSize(0, 0));
        QCOMPARE(icon(lib()->getIndexOfExplicitColor(black)), QSize(0, 0));
        lib()->set("plain", rgb(2, 2, 2));
        QCOMPARE(icon(lib()->getIndexOfUid("plain")), QSize(3, 2));
    }

    void waitCursor()
    {
        restart();
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    // Explicit colours and project loads come without a word to the views: they may show what was, but nothing crashes,
    // and the next announced change brings them up to date.
    void silentChanges()
    {
        lib()->init(true, true, true);
        for (int i = 0; i < 5; ++i)
            lib()->createColorWithName(rgb(i, 0, 0), "Old", QString("{%1}").arg(i), "Project Swatches", "");
        SwatchView view(lib());
        view.selectAll();
        view.setCurrentIndex(lib()->getIndexOfUid("{3}"));
        const QPersistentModelIndex kept(lib()->getIndexOfUid("{3}"));

        QSignalSpy inserted(lib(), &QAbstractItemModel::rowsInserted);
        QSignalSpy removed(lib(), &QAbstractItemModel::rowsRemoved);
        loadProject(
            "<p><ColorLibrary><Color uid='{n}' name='New' value='aRgb;1;0;#ffffffff00000000'/></ColorLibrary></p>");
        lib()->get("aRgb;1;0;#ffff000000000000");
        QCOMPARE(inserted.size() + removed.size(), 0);
        QVERIFY(!kept.isValid());
        view.paint();
        for (int y = 0; y < 200; y += 5)
            QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {40, y});
        QTest::keyClick(&view, Qt::Key_Down);
        view.paint();

        lib()->createColorWithName(rgb(9, 9, 9), "Newer", "", "Project Swatches", "");
        lib()->createColor(rgb(9, 9, 9), "{e}", "Explicit Colors", "", "");
        view.expandAll();
        view.paint();
        QVERIFY(view.visibleRows().contains("New"));
        QVERIFY(view.visibleRows().contains("Newer"));
        QCOMPARE(names("Explicit Colors").size(), 2);
        lib()->removeRows(0, 2, list("Explicit Colors"));
        view.paint();
    }

    // A proxy model keeps a table of rows, which is out of date after a silent change.
    void silentChangesUnderAProxy_data()
    {
        const Rows<int, int, QString> row;
        for (const char* next : {"remove", "clear", "create", "insert", "remove list", "remove, filtered out"}) {
            row(QByteArray("longer, then ") + next, 3, 400, next);
            row(QByteArray("shorter, then ") + next, 400, 3, next);
        }
    }
    void silentChangesUnderAProxy()
    {
        const auto [before, after, next] = fetched<int, int, QString>();
        lib()->init(true, true, true);
        QSortFilterProxyModel proxy;
        proxy.setSourceModel(lib());
        proxy.sort(0);
        const QModelIndex project = list("Project Swatches");
        const auto load = [&](int count) {
            QByteArray xml = "<ColorLibrary>";
            for (int i = 0; i < count; ++i)
                xml += "<Color uid='" + QByteArray::number(i) + "' value='aRgb;1;0;#ffffffff00000000'/>";
            loadProject(xml + "</ColorLibrary>");
        };
        const bool isFilteredOut = next.endsWith("filtered out");
        if (isFilteredOut)
            proxy.setFilterFixedString("another list");
        load(before);
        proxy.mapFromSource(lib()->index(0, 0, project));
        QVERIFY(isFilteredOut || proxy.rowCount(proxy.mapFromSource(project)) == before);
        load(after);
        const int last = after - 1;
        if (next.startsWith("remove") && next != "remove list")
            lib()->removeRows(last - 1, 2, project);
        else if (next == "clear")
            lib()->clear("Project Swatches");
        else if (next == "create")
            lib()->createColor(rgb(1, 1, 1), "", "Project Swatches", "", "");
        else if (next == "insert")
            lib()->insertRows(last, 3, project);
        else
            lib()->removeRows(project.row(), 1, lib()->rootIndex());
        if (isFilteredOut)
            return;
        const QModelIndex shown = proxy.mapFromSource(list("Project Swatches"));
        QCOMPARE(proxy.rowCount(shown), lib()->rowCount(list("Project Swatches")));
        for (int row = 0; row < proxy.rowCount(shown); ++row)
            QVERIFY(proxy.index(row, 0, shown).data().isValid());
    }
};

QTEST_MAIN(TestLibraryViews)
#include "tst_libraryviews.moc"
