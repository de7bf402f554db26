// Running without a display.
#include "headless.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>

namespace {

/// What is left out is nobody's business.
void dropRemarks(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    Q_UNUSED(type)
    Q_UNUSED(context)
    if (!message.contains(QLatin1String("propagateSizeHints()")) && !message.contains(QLatin1String("XDG_RUNTIME_DIR")))
        std::fprintf(stderr, "%s\n", message.toLocal8Bit().constData());
}

} // namespace

void goHeadless()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(dropRemarks);
}
