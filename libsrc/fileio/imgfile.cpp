#include "fileio/imgfile.h"
#include "fileio/filetypes.h"

namespace {

static_assert(offsetof(_imgfile, hd) == sizeof(_dovfile));

constexpr dov_field header_fields[] = {{"version", dov_form::i4, 0, 4}, {"nsamp", dov_form::i4, 4, 4}};
constexpr const char *keywords[] = {"nsamp"};
constexpr const char *counts[] = {"nsamp"};
constexpr dov_field item_fields[] = {{"sample", dov_form::f4, 0, 4}};

dov_layout layout(const void *head)
{
    return dov_items({}, 0, item_fields, 4, static_cast<const _imgheader *>(head)->nsamp);
}

dov_type_state state;

} // namespace

const dov_type img_type = {110,
                           "img",
                           "lines of an image",
                           sizeof(_imgheader),
                           header_fields,
                           keywords,
                           counts,
                           dov_clock::index,
                           layout,
                           img_service,
                           img_keyword_service,
                           &state};

_dovfiletype *openimg(const char *filename, const char *mode, int nsamp)
{
    _imgheader head;
    dov_init_head(img_type, &head);
    head.nsamp = nsamp;
    return dov_open(img_type, filename, mode, &head);
}

int getimgerror()
{
    return state.error;
}

int img_service(_dovfiletype *img, int opcode, void *arg)
{
    return dov_service(img_type, img, opcode, arg);
}

int img_keyword_service(_dovfiletype *img, int opcode, char *name, void *arg)
{
    return dov_keyword_service(img_type, img, opcode, name, arg);
}
