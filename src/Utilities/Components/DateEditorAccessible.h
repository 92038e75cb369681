#pragma once

/// What a date editor is to assistive technology: a spin control whose text is the whole date, and in it an
/// entry for each part, "month, November". Qt's own would neither tell the parts nor a value.
namespace DateEditorAccessible {

void install();

} // namespace DateEditorAccessible
