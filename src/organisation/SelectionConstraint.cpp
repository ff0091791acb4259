#include "organisation/SelectionConstraint.h"

namespace mosaro::organisation {

NodeList legalSelection(const NodeList& proposed)
{
    NodeList legal;
    for (const CollectionNode* node : proposed) {
        const bool loneSystemNode = !node->isGroup && proposed.size() == 1;
        if (node->isUserNode() || loneSystemNode) {
            legal.push_back(node);
        }
    }
    return legal;
}

} // namespace mosaro::organisation
