.pragma library

// Hotkey texts as the cards print them: the tokens of a sequence such as
// "Ctrl+Shift+Q", each read for the platform, joined by blanks. The key that
// the sequence format calls "Win" is "Super" on a Linux desktop.

function readToken(token, os, glyphs) {
    if (token === "Win" && os === "linux")
        return "Super";
    return glyphs.hasOwnProperty(token) ? glyphs[token] : token;
}

function join(sequence, os, glyphs) {
    if (!sequence)
        return "";
    return sequence.split("+").map(token => readToken(token, os, glyphs)).join(" ");
}

// Hints and footers: only the platform's name for the logo key.
function plain(sequence, os) {
    return join(sequence, os, {});
}

// The first-run card writes a Mac's modifiers as the symbols on its keys.
function chip(sequence, os) {
    return join(sequence, os, os === "osx" ? { "Ctrl": "\u2318", "Alt": "\u2325", "Shift": "\u21E7" } : {});
}

// The shortcut card has narrow chips: Shift and Escape become their symbols.
function compact(sequence, os) {
    return join(sequence, os, { "Shift": "\u21E7", "Esc": "\u238B", "Escape": "\u238B" });
}
