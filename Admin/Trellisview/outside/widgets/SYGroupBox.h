#pragma once

#include "outside/widgets/SYWnd.h"

// A framed, titled box; the controls inside it are its siblings, as in a dialog template.
class SYGroupBox : public SYWnd {};
