#include "details/SYAppBaseTabWnd.h"

SY_IMPLEMENT_DYNAMIC(SYAppBaseTabWnd, SYTabWnd)
