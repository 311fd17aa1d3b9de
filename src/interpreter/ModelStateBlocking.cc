// Calls whose thread is held: blocked without reply, or replied and waiting
// to return.
#include "interpreter/ModelState.h"

#include "interpreter/StatementQueries.h"

#include "metamodel/PortReference.h"

#include <algorithm>
#include <stdexcept>

namespace {

kel::PortEvent WithPort(kel::EventInstance const& instance) {
    kel::PortEvent event(instance);
    event.GetPort();
    return event;
}

} // namespace

void ModelState::block(kel::EventInstance const& eventInstance) {
    auto const position = std::lower_bound(
        blockedEvents.begin(), blockedEvents.end(), &eventInstance,
        [](auto const* a, auto const* b) { return a->getOid() < b->getOid(); });
    if (position == blockedEvents.end() || *position != &eventInstance) {
        blockedEvents.insert(position, &eventInstance);
    }
    trace(ProgramStep::Block(kel::PortEvent(eventInstance), snapshot(), activationEvent));
    isBlocking = false;
    isActive = false;
    activationEvent = {};
    currentCallContext = nullptr;
    claimedProvidedPort = nullptr;
}

void ModelState::release(kel::PortDeclaration const& port) {
    auto const found = std::find_if(blockedEvents.begin(), blockedEvents.end(),
                                    [&](auto const* blocked) { return PortOf(*blocked) == &port; });
    if (found != blockedEvents.end()) {
        blockedEvents.erase(found);
    }
}

std::vector<kel::EventInstance const*> ModelState::getBlockedEvents_() const {
    auto blocked = blockedEvents;
    for (auto const& pending : pendingReturns) {
        blocked.push_back(pending.first);
    }
    return blocked;
}

std::vector<kel::PortEvent> ModelState::getBlockedEvents() const {
    std::vector<kel::PortEvent> events;
    for (auto const* blocked : getBlockedEvents_()) {
        events.push_back(WithPort(*blocked));
    }
    return events;
}

kel::EventInstance const& ModelState::getBlockedEvent_(kel::PortDeclaration const& port) const {
    for (auto const* blocked : getBlockedEvents_()) {
        if (PortOf(*blocked) == &port) {
            return *blocked;
        }
    }
    throw std::runtime_error("Port not blocked");
}

kel::PortEvent ModelState::getBlockedEvent(kel::PortDeclaration const& port) const {
    for (auto const* blocked : getBlockedEvents_()) {
        if (WithPort(*blocked).port == &port) {
            return kel::PortEvent(*blocked);
        }
    }
    throw std::runtime_error("Port not blocked");
}

bool ModelState::isBlocked(kel::PortDeclaration const& port) const {
    auto const blocked = getBlockedEvents_();
    return std::any_of(blocked.begin(), blocked.end(),
                       [&](auto const* instance) { return WithPort(*instance).port == &port; });
}
