#include "ValueSource.h"

#include <string>

namespace communication {

void logRefusedSend(const ValueSource& source, RefusedText refused) {
    const std::string_view message(refused.text);
    const std::string label = refused.label != nullptr
                                  ? std::string(refused.label)
                                  : std::string(message.substr(0, message.find_first_of(",:")));
    logger::write(logger::Level::Warn, source.path, source.line, label.c_str(),
                  QString::fromUtf8(message.data(), static_cast<qsizetype>(message.size())));
}

} // namespace communication
