#pragma once

#include "ProtocolMessage.h"

namespace halyard::protocol {

/// Results of AddRequestHeader.
inline constexpr std::uint8_t kRequestLogged = 0;
inline constexpr std::uint8_t kRequestLogFull = 2;

/// Outstanding requests, by transaction id.
class ProtocolRequestLogInterface {
public:
    virtual ~ProtocolRequestLogInterface() = default;

    virtual void ClearAll() = 0;
    /// Gives the request the lowest free id and records its header: kRequestLogged, or
    /// kRequestLogFull when every id is taken.
    virtual std::uint8_t AddRequestHeader(ProtocolMessage& message) = 0;
    /// For a response: restores its request's object, instance, attribute and operation and frees
    /// the entry. Returns true when the id has NO outstanding request (nothing changed).
    virtual bool MatchResponse(ProtocolMessage& message) = 0;
    virtual void Release(std::uint8_t id) = 0;

protected:
    ProtocolRequestLogInterface() = default;
    ProtocolRequestLogInterface(const ProtocolRequestLogInterface&) = default;
    ProtocolRequestLogInterface& operator=(const ProtocolRequestLogInterface&) = default;
};

} // namespace halyard::protocol
