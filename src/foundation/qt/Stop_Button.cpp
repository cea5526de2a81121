#include "foundation/qt/Stop_Button.h"

#include <QAbstractButton>
#include <QMouseEvent>
#include <QWindow>

namespace zarvek {

bool Is_Click_For(const QAbstractButton* button, const QObject* watched, const QEvent* event) {
  if (!button || !watched) return false;
  const QEvent::Type type = event->type();
  const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
  if (!press && type != QEvent::MouseButtonRelease) return false;
  if (watched == button) return true;
  // the window's own step: only the toplevel that holds the button
  if (!watched->isWindowType() || button->window()->windowHandle() != watched) return false;
  if (!button->isEnabled() || !button->isVisible()) return false;
  if (!press) return button->isDown();
  const auto* me = static_cast<const QMouseEvent*>(event);
  const QPoint at = button->mapFromGlobal(me->globalPosition().toPoint());
  return button->rect().contains(at);
}

}  // namespace zarvek
