// The look of the diagram: the style sheet and arrow heads that every SVG the
// viewer writes carries inside itself, so that it needs no file beside it.
#pragma once

namespace view {

// Calls are solid blue with a filled head, replies dashed grey with an open
// head, notifications dotted purple; the verdict is red so that it stands out.
inline constexpr char const* svgStyle = R"(<style>
.kel-diagram { font-family: "DejaVu Sans", Verdana, sans-serif; font-size: 12px; background: #fff; }
.kel-diagram .title { font-size: 14px; font-weight: bold; fill: #2c3e50; }
.kel-diagram .head { fill: #eef2f8; stroke: #34495e; }
.kel-diagram .provided .head { fill: #e8f4ea; }
.kel-diagram .required .head { fill: #fbf1e4; }
.kel-diagram .name { font-size: 13px; font-weight: bold; }
.kel-diagram .role { font-size: 10px; fill: #666; }
.kel-diagram .life { stroke: #8a959e; stroke-dasharray: 4 4; }
.kel-diagram .environment .life { stroke: #c0c6cc; stroke-dasharray: 1 5; }
.kel-diagram .hit { fill: transparent; }
.kel-diagram .step:hover .hit, .kel-diagram .active .hit { fill: #fff4bf; }
.kel-diagram .lifeline:hover .head, .kel-diagram .lifeline.active .head { stroke-width: 2.5; }
.kel-diagram .arrow line { stroke-width: 1.5; }
.kel-diagram .call line { stroke: #1f5fa8; }
.kel-diagram .return line { stroke: #555; stroke-dasharray: 7 4; }
.kel-diagram .notification line { stroke: #8e44ad; stroke-dasharray: 2 3; stroke-width: 2; }
.kel-diagram .label { fill: #222; }
.kel-diagram .dot { fill: #95a5a6; }
.kel-diagram .kind { font-size: 9px; fill: #888; }
.kel-diagram .verdict .box { fill: #fdecea; stroke: #c62828; stroke-width: 2; }
.kel-diagram .verdict .message { fill: #b71c1c; font-weight: bold; font-size: 13px; }
.kel-diagram .verdict .pointer { stroke: #c62828; stroke-width: 2; }
.kel-diagram .verdict .ring { fill: none; stroke: #c62828; stroke-width: 2.5; }
.kel-diagram .ok .message { fill: #2e7d32; font-weight: normal; }
</style>
<defs>
<marker id="head-call" viewBox="0 0 10 10" refX="10" refY="5" markerWidth="8" markerHeight="8" orient="auto"><path d="M0,0 L10,5 L0,10 z" fill="#1f5fa8"/></marker>
<marker id="head-return" viewBox="0 0 10 10" refX="10" refY="5" markerWidth="8" markerHeight="8" orient="auto"><path d="M0,0 L10,5 L0,10" fill="none" stroke="#555" stroke-width="1.5"/></marker>
<marker id="head-notification" viewBox="0 0 10 10" refX="10" refY="5" markerWidth="8" markerHeight="8" orient="auto"><path d="M0,0 L10,5 L0,10 L4,5 z" fill="#8e44ad"/></marker>
<marker id="head-verdict" viewBox="0 0 10 10" refX="10" refY="5" markerWidth="7" markerHeight="7" orient="auto"><path d="M0,0 L10,5 L0,10 z" fill="#c62828"/></marker>
</defs>
)";

} // namespace view
