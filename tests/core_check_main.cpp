// Links quorvane_core alone; the test core_links_no_gui checks what this program pulls in.
#include "core/sound_error_text.h"

#include <cstdio>

int main()
{
    std::puts(qPrintable(quorvane::sound_error_text(0)));
    return 0;
}
