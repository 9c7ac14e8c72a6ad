/* The header in the oldest language that it promises to serve; SdkHeader.IsPlainC99 calls this. */
#include "orvane_plugin.h"

int32_t HeaderAsC99(uint32_t message, OrvaneEntryRecord* record) {
    if (message != ORVANE_MSG_INIT) return ORVANE_UNIMPLEMENTED;
    return record ? (int32_t)sizeof(*record) : ORVANE_BAD_PARAMETER;
}
