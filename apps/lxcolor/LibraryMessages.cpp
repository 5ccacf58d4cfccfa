#include "LibraryMessages.h"

#include <QLoggingCategory>

#include <cstdio>

namespace {

QStringList* s_debugTexts = nullptr; // where they go while somebody wants them

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    else if (type == QtDebugMsg && s_debugTexts)
        s_debugTexts->append(message);
}

} // namespace

void dropLibraryMessages() { qInstallMessageHandler(handleMessage); }

CaughtDebugMessages::CaughtDebugMessages() : m_wasOn(QLoggingCategory::defaultCategory()->isDebugEnabled())
{
    s_debugTexts = &m_texts;
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
}

CaughtDebugMessages::~CaughtDebugMessages()
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, m_wasOn);
    s_debugTexts = nullptr;
}
