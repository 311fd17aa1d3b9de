// The style sheet, legend and script of the HTML page, inline so that the
// page loads nothing from anywhere.
#pragma once

namespace view {

inline constexpr char const* pageStyle = R"(<style>
body { margin: 0; font-family: "DejaVu Sans", Verdana, sans-serif; color: #222; background: #fff; }
header { padding: 8px 16px; border-bottom: 1px solid #ddd; }
h1 { font-size: 16px; margin: 0 0 4px 0; }
.legend { font-size: 12px; color: #555; margin: 0; }
.legend span { margin-right: 14px; }
.legend .call { color: #1f5fa8; } .legend .return { color: #555; }
.legend .notification { color: #8e44ad; } .legend .verdict { color: #b71c1c; }
main { display: flex; align-items: flex-start; }
.picture { flex: 1 1 auto; overflow: auto; padding: 8px; }
.picture [data-index] { cursor: pointer; outline: none; }
aside { flex: 0 0 360px; position: sticky; top: 0; max-height: 100vh; overflow: auto;
        box-sizing: border-box; border-left: 1px solid #ddd; padding: 8px 12px; font-size: 12px; }
aside h2 { font-size: 14px; margin: 4px 0; } aside h3 { font-size: 12px; margin: 10px 0 4px 0; color: #555; }
.happening { margin: 2px 0; font-weight: bold; }
table.state { border-collapse: collapse; } table.state td { border: 1px solid #ddd; padding: 2px 6px; font-family: "DejaVu Sans Mono", monospace; }
.where { margin: 4px 0 2px 0; font-family: "DejaVu Sans Mono", monospace; }
pre.excerpt { margin: 0; padding: 4px; background: #f7f7f7; border: 1px solid #e3e3e3; overflow-x: auto; font-size: 11px; }
pre.excerpt .number { display: inline-block; width: 3em; color: #999; text-align: right; margin-right: 8px; }
pre.excerpt .selected { background: #fff1a8; }
</style>
)";

inline constexpr char const* legend =
    "<p class=\"legend\"><span class=\"call\">&#x2192; call</span>"
    "<span class=\"return\">&#x21E2; return</span>"
    "<span class=\"notification\">&#x2192; notification (dotted)</span>"
    "<span>&#x25A0; a step on its lifeline</span>"
    "<span class=\"verdict\">the verdict in red</span></p>";

inline constexpr char const* hint =
    "<p id=\"hint\">Point at a step, or click it to keep it, to see the state of its model and "
    "where it stands in the source.</p>\n";

// Hovering shows a step's section until a click pins one; a click on the
// background lets go again. Keyboard focus works like a click, and an address
// ending in #N opens with element N pinned, so that a step can be linked to.
inline constexpr char const* pageScript = R"(<script>
(function () {
  var picture = document.querySelector('.picture');
  var hint = document.getElementById('hint');
  var active = null, pinned = false;
  function section(group) { return document.getElementById('detail-' + group.getAttribute('data-index')); }
  function show(group) {
    if (active) { active.classList.remove('active'); section(active).hidden = true; }
    active = group;
    hint.hidden = group !== null;
    if (group) { group.classList.add('active'); section(group).hidden = false; }
  }
  function stepOf(event) { return event.target.closest('[data-index]'); }
  picture.addEventListener('mouseover', function (e) { var g = stepOf(e); if (g && !pinned) show(g); });
  picture.addEventListener('click', function (e) { var g = stepOf(e); pinned = g !== null; show(g); });
  picture.addEventListener('focusin', function (e) { var g = stepOf(e); if (g) { pinned = true; show(g); } });
  if (/^#[0-9]+$/.test(location.hash)) {
    var linked = picture.querySelector('[data-index="' + location.hash.slice(1) + '"]');
    if (linked) { pinned = true; show(linked); }
  }
})();
</script>
)";

} // namespace view
