#include "wi/spolist.h"

#include "dovsys/dovsys.h"
#include "wi/spfold.h"

#include <utility>

namespace {

constexpr int more_slots = 5;
constexpr int operator_slot = 1;
constexpr int value_slot = 2;

} // namespace

olist *olist_init(sp_context *context)
{
    auto *list = static_cast<olist *>(jmalloc(sizeof(olist)));
    list->context = context;
    return list;
}

void olist_free(olist *list)
{
    if (list == nullptr)
        return;
    for (int i = 0; i < list->nslots; ++i)
        sp_free_value(list->slots[i].val);
    jfree(list->slots);
    jfree(list);
}

olistslot *olist_mkslot(olist *list)
{
    if (list->nslots == list->mxslots) {
        list->mxslots = list->nslots + more_slots;
        list->slots = static_cast<olistslot *>(
            sp_resize(list->slots, static_cast<std::size_t>(list->mxslots) * sizeof(olistslot)));
    }
    olistslot *slot = &list->slots[list->nslots++];
    *slot = {};
    return slot;
}

void olist_pushopt(olist *list, int opt)
{
    olistslot *slot = olist_mkslot(list);
    slot->type = operator_slot;
    slot->opt = opt;
}

void olist_pushval(olist *list, sp_value *val)
{
    olistslot *slot = olist_mkslot(list);
    slot->type = value_slot;
    slot->val = val != nullptr ? val : sp_get_blank_value();
}

sp_value *olist_evaluate(olist *list)
{
    sp_operands operands;
    sp_fold fold = {};
    for (int i = 0; i < list->nslots; ++i) {
        olistslot &slot = list->slots[i];
        if (slot.type == value_slot) {
            operands.push_value(std::exchange(slot.val, nullptr));
            fold.take_operand(operands, 0);
        } else {
            fold.take_operator(operands, sp_operator_of(slot.opt), 0);
        }
    }
    olist_free(list);
    fold.finish(operands, 0);
    return operands.take();
}
