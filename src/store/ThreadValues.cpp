#include "store/ThreadValues.h"

namespace FX_Algen::store {

ThreadValues& Thread() {
    thread_local ThreadValues values;
    return values;
}

Messages& Port() {
    auto& port = Thread().Port;
    if (!port) port = std::make_shared<RecordingMessages>();
    return *port;
}

}  // namespace FX_Algen::store
