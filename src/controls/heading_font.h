#pragma once

class QLabel;

/// Letters larger than those around the label by one measure for all headings, and larger with them: a style
/// sheet knows only sizes that stay.
void growAsHeading(QLabel& label);
