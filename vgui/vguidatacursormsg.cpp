#include "vgui/vguidatacursormsg.h"

VGuiDataCursorMsg::VGuiDataCursorMsg(VGuiGraph* graph, const string_ext<char>& label, int precision,
                                     const VGuiGraphPoint& p, int dataId)
: VGuiGraphCursorMsg(graph, label, precision, dataId),
  point(p)
{}
