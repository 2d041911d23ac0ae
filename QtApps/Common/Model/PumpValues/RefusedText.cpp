#include "RefusedText.h"

#include <string>
#include <string_view>

namespace communication {

void RefusedText::log() const {
    const std::string_view message(mText);
    const std::string label = mLabel != nullptr
                                  ? std::string(mLabel)
                                  : std::string(message.substr(0, message.find_first_of(",:")));
    logger::write(logger::Level::Warn, logger::Site(label.c_str(), mFile, mLine),
                  QString::fromUtf8(message.data(), static_cast<qsizetype>(message.size())));
}

} // namespace communication
