// The library's observer: it only prints messages.
#include "objects/observer.h"

#include <cstdio>

namespace korvel {

void ObserveEvent(std::string_view /*sourceGroup*/, std::int32_t /*sourceNumber*/,
                  EventType /*type*/, EventData /*data*/) {}

void ObserveEvent(EventType /*type*/, EventData /*data*/) {}

void ObserveLink(const Link& /*link*/) {}

void ObserveSkippedLink(const Link& /*link*/, Reason /*reason*/) {}

void ObserveAction(const ActionHolder& /*list*/, const ElementaryAction& /*action*/) {}

void ObserveActionStatus(Status /*status*/) {}

void ObserveListEnd(const ActionHolder& /*list*/) {}

void ObserveReason(Reason /*reason*/, std::int32_t /*detail*/) {}

void ObserveValue(const Ingredient& /*variable*/) {}

void ObserveGroupStart(const Group& /*group*/) {}

void ObserveGroupEnd(const Group& /*group*/) {}

void PrintMessage(const char* text, std::va_list values) { std::vprintf(text, values); }

}  // namespace korvel
