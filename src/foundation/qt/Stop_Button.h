// The stop button of a solve, heard while a window filters out every other
// input.
#pragma once

class QAbstractButton;
class QEvent;
class QObject;

namespace zarvek {

// True when `event`, seen by an application-wide event filter on its way to
// `watched`, belongs to a click on `button` and must be let through.
//
// A press and a release from the window system are delivered to the
// toplevel's window object first, and only then, by that window, to the
// widget under the pointer: a filter that waits for the button itself to be
// the receiver swallows every real click at the first step (a simulated
// click sent straight to the widget skips that step). The press is let
// through when it lands on the enabled button; the release when the button
// is down, wherever the pointer went (the button decides itself whether the
// release still makes a click, as everywhere else).
bool Is_Click_For(const QAbstractButton* button, const QObject* watched, const QEvent* event);

}  // namespace zarvek
