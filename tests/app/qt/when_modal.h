// Modal windows of the program answered from the event loop that their
// exec() runs, as a user answers them.
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>
#include <memory>

// Acts on the modal window of type T once it is up (the next event-loop
// turns), then lets the caller's exec() return. Leaves the flag false if
// none came.
template <class T>
void When_Modal(std::function<void(T*)> act, bool* seen) {
  auto tries = std::make_shared<int>(0);
  auto poll = std::make_shared<std::function<void()>>();
  *poll = [act, seen, tries, poll] {
    if (auto* w = qobject_cast<T*>(QApplication::activeModalWidget())) {
      *seen = true;
      act(w);
      return;
    }
    if (++*tries < 200) QTimer::singleShot(10, *poll);
  };
  QTimer::singleShot(0, *poll);
}
