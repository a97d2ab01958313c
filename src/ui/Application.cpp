#include "ui/Application.h"

#include <QGuiApplication>
#include <array>
#include <clocale>
#include <cstdio>
#include <memory>
#include <mutex>
#include <string>

#include "FX_Algen/Error.h"

namespace FX_Algen::ui {
namespace {

/// Passes on what stops the process only: a note that the locale is no UTF-8 is none of the business of
/// whoever wants a picture.
void FailuresOnly(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
}

/// The toolkit sets the locale of the environment, and with it a decimal comma for everything in the process
/// that prints or reads numbers the C way.
class KeptLocale {
public:
    KeptLocale() : before_(std::setlocale(LC_ALL, nullptr)) {}
    ~KeptLocale() { std::setlocale(LC_ALL, before_.c_str()); }
    KeptLocale(const KeptLocale&) = delete;
    KeptLocale& operator=(const KeptLocale&) = delete;

private:
    std::string before_;
};

void MakeApplication() {
    // The application keeps references to both as long as it lives. Pictures never need a display: one that
    // does not answer, or a platform that is not installed, would end the process.
    static std::string name = "FX_Algen";
    static std::string option = "-platform";
    static std::string platform = "offscreen";
    static std::array<char*, 4> arguments = {name.data(), option.data(), platform.data(), nullptr};
    static int count = 3;

    const KeptLocale locale;
    const auto handler = qInstallMessageHandler(FailuresOnly);
    // Known to the toolkit from now on, and never destroyed: at the end of the process the toolkit's own
    // global values may be gone already.
    static_cast<void>(std::make_unique<QGuiApplication>(count, arguments.data()).release());
    qInstallMessageHandler(handler);
}

}  // namespace

void NeedApplication() {
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    if (!QCoreApplication::instance()) MakeApplication();
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        throw Error(
            ErrorNumber::NotBuilt,
            "Pictures: the program runs a QCoreApplication, which has no fonts. Make a QGuiApplication "
            "or QApplication in its place.");
}

}  // namespace FX_Algen::ui
