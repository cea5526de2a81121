// The mouse images of the 3D window and its fixed picture of the axes,
// drawn by the program itself.
//
// Cur_RotX: turning about the horizontal axis of the screen (an upright loop).
// Cur_RotZ: turning about the upright axis of the screen (a flat loop).
// Cur_RotY: turning in the plane of the screen, about the line of sight.
// Cur_TransXY: moving the picture (four arrows).
#pragma once

#include <QCursor>
#include <QPixmap>

#include "view3d/TriD.h"

namespace zarvek {

QPixmap TriD_CursorPixmap(TriD_Cursor c);
QCursor Cur_RotX();
QCursor Cur_RotY();
QCursor Cur_RotZ();
QCursor Cur_TransXY();
// The image of a cursor kind (the arrow for Default).
QCursor TriD_QCursor(TriD_Cursor c);

// The axes of the view: X to the right, Z up, Y into the screen.
QPixmap TriD_AxesPixmap(int size);

}  // namespace zarvek
