// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Course;

// The programme shell's own screens, made known to the screen layer.
void registerShellScreens(Course &course);
