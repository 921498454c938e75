// What the pointer did, as graphic objects hear it: the events that drive the
// hover and pressed look of buttons.
#pragma once

enum VGuiGfxState
{
	VGuiGfxPointerMoved = 1,
	VGuiGfxPointerLeft = 2,
	VGuiGfxButtonPressed = 3,
	VGuiGfxButtonReleased = 4
};
