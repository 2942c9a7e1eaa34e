// SPDX-License-Identifier: GPL-3.0-or-later
#include "MpvValues.h"

#include <mpv/client.h>

qint64 numberIn(const mpv_node &node, const char *name)
{
    if (node.format != MPV_FORMAT_NODE_MAP)
        return -1;
    const mpv_node_list &map = *node.u.list;
    for (int index = 0; index < map.num; ++index) {
        if (qstrcmp(map.keys[index], name) == 0 && map.values[index].format == MPV_FORMAT_INT64)
            return map.values[index].u.int64;
    }
    return -1;
}

VideoShape videoShapeIn(const mpv_event_property &property)
{
    if (property.format != MPV_FORMAT_NODE)
        return {};
    const auto &node = *static_cast<const mpv_node *>(property.data);
    const auto number = [&node](const char *name) {
        return static_cast<int>(numberIn(node, name));
    };
    return {.pixels = {number("w"), number("h")}, .proportions = {number("dw"), number("dh")}};
}
