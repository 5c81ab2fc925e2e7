// Event sources of the test host, as the IDE offers them: an object with one
// connection point (IConnectionPointContainer, EnumConnectionPoints,
// IConnectionPoint) whose interface id is the IDE's. Advise asks the sink
// for that interface, as a real connection point does, and the host raises
// events by calling the sink's IDispatch::Invoke.
#pragma once

#include <functional>

#include "tests/win/host/host_object.h"

namespace tavrin::test_host {

// Connects one sink (already asked for the events interface) to the model's
// events; returns what disconnects it.
using AdviseSink = std::function<std::function<void()>(ComPtr<IDispatch> sink)>;

ComPtr<IDispatch> MakeHostEventSource(const IID& events_iid, AdviseSink advise);

// Sinks connected now, over every source of the host.
long ConnectedHostSinks();

// The VB6 IDE's interface ids of its event sources.
inline constexpr IID kCommandBarEventsIid = {
    0x0002E198, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr IID kVBProjectsEventsIid = {
    0x0002E190, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr IID kVBComponentsEventsIid = {
    0x0002E193, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
inline constexpr IID kVBControlsEventsIid = {
    0x0002E122, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

// Raises one event on a sink: the arguments in their natural order.
void RaiseEvent(IDispatch& sink, DISPID id, std::vector<Variant> args);

}  // namespace tavrin::test_host
