// Marks in a component's trace where each required port ended a spontaneous
// activity that delivered notifications, so that the component serves its
// queue there. A marker reads "<port>.<<flush_queue>>".
#pragma once

#include "trace/PortStates.h"

#include <string>
#include <vector>

class TraceAnnotator {
public:
    static bool is_queue_flush(std::string const& event);
    static std::vector<std::string> rm_queue_flushes(std::vector<std::string> const& trace);
    static std::vector<std::string> add_queue_flushes(std::vector<std::string> const& trace,
                                                      PortStates const& portStates);
};
