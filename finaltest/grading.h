// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Course;

// GradeTest: the course grades the final test by its two counters and the grade scale, page 11
// shows the grade (following Course::graded), and ZensurQel.txt gets it with the date. Does
// nothing before the first click.
void gradeTest(Course &course);
