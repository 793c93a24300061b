#include "interface/quorvex_app.h"

namespace {

CQuorvexApp theApp;

}  // namespace
