#pragma once
// The words of the demo year: names, places, subjects and the texts a teacher
// writes. All UTF-8, none with an apostrophe (statements built by
// concatenation could not take one).
#include <span>

namespace setup::demo {

using Words = std::span<const char* const>;

Words girlNames();
Words boyNames();
Words surnames();
Words fatherNames();
Words motherNames();
Words teacherNames(); // full names of the colleagues of the tutored group

struct Town {
    const char* name;
    const char* postcode;
    const char* province;
};
std::span<const Town> towns();
Words streets();
Words studentRemarks();

struct Subject {
    const char* name;
    const char* code;      // short label in the timetable
    const char* remarks;   // may be null
    unsigned rgb;          // timetable colour, 0xRRGGBB
    const char* topics[9]; // three per evaluation
    const char* projects[3];
};
std::span<const Subject> subjects();

Words taskRemarks(int type); // remarks of a task, by type (0 exam .. 3 project)
Words markRemarksHigh();     // remarks of a good mark
Words markRemarksMiddle();
Words markRemarksLow();
Words evaluationRemarks();
Words diaryActivities(); // "%1" is the topic

struct Rubric {
    const char* num[4];
    const char* des[4];
    const char* cri[4];
};
std::span<const Rubric> rubrics();

struct Incident {
    const char* subject;
    const char* facts;
    const char* resolution;
};
std::span<const Incident> incidents();

struct Appointment {
    const char* title; // "%1" is the student's name
    const char* matter;
    const char* result;
};
std::span<const Appointment> appointments();

struct TutoringSubject {
    const char* code;
    const char* name;
    int subject; // index into subjects() whose marks it follows, -1 for none
    const char* remarks;
};
std::span<const TutoringSubject> tutoringSubjects();

} // namespace setup::demo
