// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/crest_charges.h"

#include <array>
#include <cstddef>

namespace velorin {

namespace charge_art {

constexpr const char* blossom =
    R"svg(<g fill="@t"><circle cx="0" cy="-9.5" r="4.3"/><circle cx="6.7" cy="-6.7" r="4.3"/>)svg"
    R"svg(<circle cx="9.5" cy="0" r="4.3"/><circle cx="6.7" cy="6.7" r="4.3"/><circle cx="0" cy="9.5" r="4.3"/>)svg"
    R"svg(<circle cx="-6.7" cy="6.7" r="4.3"/><circle cx="-9.5" cy="0" r="4.3"/><circle cx="-6.7" cy="-6.7" r="4.3"/>)svg"
    R"svg(<circle cx="0" cy="0" r="4.6"/></g>)svg";
constexpr const char* river =
    R"svg(<g fill="none" stroke="@t" stroke-width="4" stroke-linecap="round">)svg"
    R"svg(<path d="M-14 -8q3.5 -5 7 0t7 0t7 0t7 0"/><path d="M-14 1q3.5 -5 7 0t7 0t7 0t7 0"/>)svg"
    R"svg(<path d="M-9 10q3 -5 6 0t6 0t6 0"/></g>)svg";
constexpr const char* acorn =
    R"svg(<path fill="@t" d="M-8.5 -1h17c0 8 -4.5 13 -8.5 15.5c-4 -2.5 -8.5 -7.5 -8.5 -15.5z"/>)svg"
    R"svg(<path fill="@t" d="M-10.5 -3c0 -5.5 4.5 -8 10.5 -8s10.5 2.5 10.5 8z"/>)svg"
    R"svg(<path fill="none" stroke="@t" stroke-width="2.6" stroke-linecap="round" d="M0 -10c0 -2.5 1 -4 3 -5"/>)svg";
constexpr const char* plume =
    R"svg(<path fill="@t" d="M0 -15c8 4.5 11 10 11 15.5c0 6 -4.5 10.5 -11 10.5s-11 -4.5 -11 -10.5c0 -5.5 3)svg"
    R"svg( -11 11 -15.5z"/><ellipse fill="@b" cx="0" cy="1.5" rx="6.8" ry="7.2"/>)svg"
    R"svg(<path fill="@t" d="M-4.3 3.5a4.3 4.3 0 0 0 8.6 0c0 -2.5 -2 -3 -4.3 -5.5c-2.3 2.5 -4.3 3 -4.3 )svg"
    R"svg(5.5z"/><path stroke="@t" stroke-width="2.6" stroke-linecap="round" d="M0 10v6"/>)svg";
constexpr const char* peaks = R"svg(<path fill="@t" d="M-15.5 11l10 -18l6 9.5l4 -5.5l11 14z"/>)svg"
                              R"svg(<path fill="@b" d="M-5.5 -2.5l2.8 4.4l-1.8 1.4l-1.4 -1.7l-2 2.1l-1 -1.4z"/>)svg"
                              R"svg(<circle fill="@t" cx="7.5" cy="-9.5" r="3.2"/>)svg";
constexpr const char* petals =
    R"svg(<g fill="@t"><ellipse cx="0" cy="-8" rx="4.4" ry="6.6"/>)svg"
    R"svg(<ellipse cx="0" cy="-8" rx="4.4" ry="6.6" transform="rotate(72)"/>)svg"
    R"svg(<ellipse cx="0" cy="-8" rx="4.4" ry="6.6" transform="rotate(144)"/>)svg"
    R"svg(<ellipse cx="0" cy="-8" rx="4.4" ry="6.6" transform="rotate(216)"/>)svg"
    R"svg(<ellipse cx="0" cy="-8" rx="4.4" ry="6.6" transform="rotate(288)"/></g><circle fill="@b" r="3.6"/>)svg";
constexpr const char* sunrise =
    R"svg(<path fill="@t" d="M-8.5 4a8.5 8.5 0 0 1 17 0z"/><path fill="@t" d="M-15 12l3.5 -5.5h23l3.5 5.5z"/>)svg"
    R"svg(<g stroke="@t" stroke-width="2.6" stroke-linecap="round"><path d="M0 -8.5v-5"/><path d="M-8.3 -4.8l-3.4)svg"
    R"svg( -3.4"/><path d="M8.3 -4.8l3.4 -3.4"/></g>)svg";
constexpr const char* shoots =
    R"svg(<g fill="@t"><path d="M0 4c-5.5 -4.5 -5.5 -12.5 0 -19c5.5 6.5 5.5 14.5 0 19z"/>)svg"
    R"svg(<path d="M-2 8c-7.5 0.5 -11.5 -3.5 -13 -11c7.5 0 12 3.5 13 11z"/>)svg"
    R"svg(<path d="M2 8c7.5 0.5 11.5 -3.5 13 -11c-7.5 0 -12 3.5 -13 11z"/></g>)svg"
    R"svg(<path stroke="@t" stroke-width="2.8" stroke-linecap="round" d="M0 4v11"/>)svg";
constexpr const char* sail =
    R"svg(<path fill="@t" d="M1 -15c8.5 5 11.5 11 11.5 18.5h-11.5z"/><path fill="@t" d="M-1.5 -10.5v14h-9c0.5 )svg"
    R"svg(-6 3.5 -10.5 9 -14z"/><path fill="@t" d="M-14 6h28c-1.5 5 -5 8 -9 8h-10c-4 0 -7.5 -3 -9 -8z"/>)svg";
constexpr const char* tower =
    R"svg(<path fill="@t" d="M-4.5 -11h9l4.5 24h-18z"/><path fill="@t" d="M-6.5 -15h3.5v2.5h1.5v-2.5h3v2.5h)svg"
    R"svg(1.5v-2.5h3.5v4.5h-13z"/><path fill="none" stroke="@b" stroke-width="2" d="M-7 -1l3.5 -4l3.5 4l3.5)svg"
    R"svg( -4l3.5 4M-8 5l4 -4l4 4l4 -4l4 4"/><path fill="@b" d="M-2.5 13v-3a2.5 2.5 0 0 1 5 0v3z"/>)svg";
constexpr const char* ball =
    R"svg(<circle fill="@t" r="13"/><g fill="none" stroke="@b" stroke-width="2"><path d="M-4.5 -12.2c4 8 4 16.4 0 )svg"
    R"svg(24.4"/><path d="M4.5 -12.2c-4 8 -4 16.4 0 24.4" /></g>)svg";
constexpr const char* stumps =
    R"svg(<g fill="@t"><path d="M-9.5 -9h4v23h-4zM-2 -9h4v23h-4zM5.5 -9h4v23h-4z"/><path d="M-9.5 -14h9v3h-9zM0.5)svg"
    R"svg( -14h9v3h-9z"/></g>)svg";
constexpr const char* bats =
    R"svg(<g fill="@t"><path transform="rotate(40)" d="M-3.4 -2.5h6.8v16.5h-6.8zM-1.4 -15h2.8v12.5h-2.8z"/>)svg"
    R"svg(<path transform="rotate(-40)" stroke="@b" stroke-width="1.2" d="M-3.4 -2.5h6.8v16.5h-6.8zM-1.4 )svg"
    R"svg(-15h2.8v12.5h-2.8z"/></g>)svg";
constexpr const char* star =
    R"svg(<path fill="@t" d="M0 -15l4.2 9.3l10.1 1.1l-7.5 6.9l2.1 10l-8.9 -5.1l-8.9 5.1l2.1 -10l-7.5)svg"
    R"svg( -6.9l10.1 -1.1z"/>)svg";
constexpr const char* wheel =
    R"svg(<circle fill="none" stroke="@t" stroke-width="3.6" r="11"/><circle fill="@t" r="3.6"/>)svg"
    R"svg(<g stroke="@t" stroke-width="2.4"><path d="M0 -10v20"/><path d="M-8.7 -5l17.4 10"/>)svg"
    R"svg(<path d="M-8.7 5l17.4 -10"/></g>)svg";
constexpr const char* bridge =
    R"svg(<path fill="@t" d="M-13 -7h26v4h-26z"/><path fill="@t" d="M-13 -1h26v11h-3a5 5 0 0 0 -10 0h0a5 5 0 0 0 -10 0)svg"
    R"svg(h-3z"/>)svg";
constexpr const char* diamonds =
    R"svg(<g fill="@t"><path d="M0 -15l5.5 7l-5.5 7l-5.5 -7z"/><path d="M-8 0l5.5 7l-5.5 7l-5.5 -7z"/>)svg"
    R"svg(<path d="M8 0l5.5 7l-5.5 7l-5.5 -7z"/></g>)svg";
constexpr const char* torch =
    R"svg(<path fill="@t" d="M0 -15.5c6.5 5 7.5 8.5 5.5 12.5h-11c-2 -4 1.5 -6 5.5 -12.5z"/>)svg"
    R"svg(<path fill="@t" d="M-7.5 -1.5h15l-2 4.5h-11zM-3.5 4.5h7l-1.5 10.5h-4z"/>)svg";

// In the order of Charge.
constexpr std::array<const char*, charges> all = {blossom, river,  acorn, plume,  peaks,    petals,
                                                  sunrise, shoots, sail,  tower,  ball,     stumps,
                                                  bats,    star,   wheel, bridge, diamonds, torch};

}  // namespace charge_art

const char* charge_shapes(Charge charge) { return charge_art::all[static_cast<std::size_t>(charge)]; }

}  // namespace velorin
