// Modal windows of the program answered from the event loop that their
// exec() runs, as a user answers them.
#pragma once

#include <QApplication>
#include <QTimer>
#include <functional>

// Acts on the modal window of type T once it is up (the next event-loop
// turns), then lets the caller's exec() return. Leaves the flag false if
// none came. Each look that finds none posts a copy of itself, so that
// nothing outlives the last one.
template <class T>
struct Modal_Poll {
  std::function<void(T*)> act;
  bool* seen;
  int tries = 0;
  void operator()() {
    if (auto* w = qobject_cast<T*>(QApplication::activeModalWidget())) {
      *seen = true;
      act(w);
      return;
    }
    if (++tries < 200) QTimer::singleShot(10, Modal_Poll(*this));
  }
};

template <class T>
void When_Modal(std::function<void(T*)> act, bool* seen) {
  QTimer::singleShot(0, Modal_Poll<T>{std::move(act), seen});
}
