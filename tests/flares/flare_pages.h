// Pages as the flare service might send them.
#pragma once

#include "flares/flare_list.h"
#include "tests/support/testing.h"

namespace vantrace {

struct FlareTimes {
    std::string date = "05 Jan";
    std::string time = "21:05:33";
    std::string satellite = "Iridium 23";
};

inline const std::string pageStart =
    "<!DOCTYPE html>\r\n<HTML><HEAD><TITLE>Flares</TITLE></HEAD>\r\n<BODY>\r\n<TABLE BORDER=1>\r\n"
    "<TR><TH>Date</TH><TH>Local<BR>time</TH><TH>Intensity</TH><TH>Alt.</TH><TH>Azimuth</TH>\r\n"
    "<TH>Distance to flare centre</TH><TH>Intensity there</TH><TH>Satellite</TH></TR>\r\n";
inline const std::string pageEnd =
    "</TABLE>\r\n<TABLE><TR><TD>Times are UTC</TD></TR></TABLE></BODY></HTML>\r\n";

inline std::string flareRow(const FlareTimes& flare = {}) {
    return "<TR>\r\n<TD>" + flare.date + "</TD>\r\n<TD ALIGN=RIGHT><A HREF=\"flaredetails.asp?n=1\">" +
           flare.time +
           "</A></TD>\r\n<TD ALIGN=CENTER>-3</TD><TD>34&deg;</TD><TD>254&deg; (WSW)</TD>"
           "<TD>12.3 km (W)</TD><TD>-8</TD>\r\n<TD><A HREF=\"satinfo.asp?id=24906\">" +
           flare.satellite + "</A></TD>\r\n</TR>\r\n";
}

inline FlareRow flareRowOf(std::array<std::string, flareColumns> texts) {
    FlareRow row;
    row.texts = std::move(texts);
    return row;
}

/// The row of the usual flare, where local time is UTC, and its line of the file.
inline const FlareRow wholeRow =
    flareRowOf({"05 JAN", "21:05:33", "-3", "34", "254", "12.3 km", "-8", "Iridium 23"});
inline const std::string wholeLine = "05 JAN;21:05:33;-3;34;254;12.3 km;-8;Iridium 23\r\n";

}  // namespace vantrace
