window.electronAPI = {
    _oCbs: [], _pCbs: [],
    onOverlayData:       function(cb) { this._oCbs.push(cb); },
    onParticipantsUpdate: function(cb) { this._pCbs.push(cb); },
    sendPptSlide: function(dir, seq, source) {
        const parts = [dir || "", seq == null ? "" : String(seq), source || ""];
        window.webkit.messageHandlers.bridge.postMessage("PPT:" + parts.join("|"));
    },
    sendDebugLog: function(msg) { window.webkit.messageHandlers.bridge.postMessage("DBG:" + msg); }
};
window._pushOD = function(m) { window.electronAPI._oCbs.forEach(function(c){ c(m); }); };
window._pushPU = function(l) { window.electronAPI._pCbs.forEach(function(c){ c(l); }); };
