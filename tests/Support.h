#ifndef TESTS_SUPPORT_H
#define TESTS_SUPPORT_H

#include "Rows.h"

#include <QStringList>
#include <QVector>
#include <QtTest>

/// Collects the messages of the test function; a test takes those it expects, and the rest fail it in cleanup().
class Messages
{
public:
    struct Entry
    {
        QString text, file, function;
    };

    Messages() { s_previous = qInstallMessageHandler(record); }
    ~Messages() { qInstallMessageHandler(s_previous); }

    static QVector<Entry> take()
    {
        QVector<Entry> taken;
        taken.swap(s_entries);
        return taken;
    }
    static QStringList takeTexts()
    {
        QStringList texts;
        for (const Entry& entry : take())
            texts << entry.text;
        return texts;
    }

private:
    static void record(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        if (type == QtFatalMsg)
            s_previous(type, context, text);
        const bool isQtsWordOnAName = text.startsWith(QLatin1String("QColor::setNamedColor"));
        // Said once a process, by whichever test first converts a colour.
        const bool isOnDatabase = text == QLatin1String("could not open tonematch profile database");
        if (!isQtsWordOnAName && !isOnDatabase)
            s_entries.append({text, context.file, context.function});
    }

    static inline QtMessageHandler s_previous = nullptr;
    static inline QVector<Entry> s_entries;
};

/// Base of the test classes: a message that nobody expected fails the test function it came up in.
class QuietTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_messages.reset(new Messages); }
    void cleanup()
    {
        QCOMPARE(Messages::takeTexts(), QStringList());
        m_messages.reset();
    }

private:
    QScopedPointer<Messages> m_messages;
};

#endif
