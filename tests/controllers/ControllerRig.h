#pragma once

#include "tests/values/ValuesLink.h"

#include "QtApps/Common/Core/Communication/ProtocolObjects/ProtocolObjectMetaTypes.h"
#include "QtApps/Common/Model/PumpSession.h"
#include "QtApps/Common/Model/PumpValues/PumpValues.h"

#include <QCoreApplication>
#include <QTest>

#include <algorithm>
#include <string>
#include <vector>

/// The controllers' world without a serial port: the real values on the real proxies and
/// message layer (ValuesLink), all on the test thread, and an idle pump session whose connection
/// signals the test raises. The controllers reach the values queued, as on the two threads of the
/// application, so every check waits for the event loop.
struct ControllerRig {
    using Operation = testsupport::LinkHarness::Operation;

    ControllerRig() { communication::objects::registerProtocolObjectMetaTypes(); }

    /// Lets the queued calls and signals go both ways.
    static void settle() {
        for (int i = 0; i < 4; ++i) {
            QCoreApplication::processEvents();
        }
    }
    /// The request sent last to (object, attribute) with `operation`, or nullptr.
    const halyard::protocol::ProtocolMessage* lastRequest(uint8_t object, uint8_t attribute,
                                                          Operation operation) const {
        const auto& sent = link.sent();
        for (auto it = sent.rbegin(); it != sent.rend(); ++it) {
            if (it->object == object && it->attribute == attribute && it->operation == operation) {
                return &*it;
            }
        }
        return nullptr;
    }
    /// How many requests went to (object, instance, attribute) with `operation`.
    int countSent(uint8_t object, uint8_t instance, uint8_t attribute, Operation operation) const {
        return static_cast<int>(
            std::count_if(link.sent().begin(), link.sent().end(), [&](const auto& request) {
                return request.object == object && request.instance == instance &&
                       request.attribute == attribute && request.operation == operation;
            }));
    }
    int countSent(Operation operation) const {
        return static_cast<int>(
            std::count_if(link.sent().begin(), link.sent().end(),
                          [&](const auto& request) { return request.operation == operation; }));
    }
    /// Answers the pump's two get-all requests: device type 1, firmware 1.16.1, and the OEM
    /// details of a stepper analog pump (or a network pump).
    void identifyPump(bool network) {
        settle();
        for (const auto& request : std::vector<halyard::protocol::ProtocolMessage>(link.sent())) {
            if (request.operation != Operation::GetAll) {
                continue;
            }
            if (request.instance == 1) {
                link.acknowledge(request, {1, 1, 16, 1});
            } else {
                std::vector<uint8_t> details{1, 3, 4};
                for (const char c : std::string("SN-42")) {
                    details.push_back(static_cast<uint8_t>(c));
                }
                details.push_back(0);
                for (const char c : std::string("BWD-100")) {
                    details.push_back(static_cast<uint8_t>(c));
                }
                details.insert(details.end(), {0, static_cast<uint8_t>(network ? 1 : 0), 1});
                link.acknowledge(request, details);
            }
        }
        // The product description is a request of its own; the details do without it.
        if (const auto* description = lastRequest(1, 10, Operation::Get)) {
            link.refuse(*description);
        }
        settle();
    }

    ValuesLink link;
    ValuesComms comms{link};
    communication::PumpValues& values = *new communication::PumpValues(comms);
    communication::PumpSession session{comms};
};
