#pragma once

/// From here on the calling thread lives in a time of its own: it begins at a fixed moment, passes a little
/// whenever somebody looks at the clock, and jumps to the next timer instead of waiting for it. So what
/// happens in the thread does not depend on how fast the machine is, and nothing is waited for.
///
/// Takes the place of the C library's clocks and of the wait of Qt's own (not GLib's) event dispatcher.
void startVirtualTime();
