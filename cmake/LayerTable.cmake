# The architecture, as one table: which layer may use which. Read by Layers.cmake when the build is
# configured and by tests/architecture/check_includes.py when it is tested. A layer may also use all that
# the layers in its list may use. A name that ends in "/ui" holds widgets; all others are headless.
#
#   layer            may use
set(MOSARO_LAYER_TABLE
    "base:"
    "platform:base"
    "kit:base"
    "store:base platform"
    "import:store"
    "organisation:import"
    "browser:import"
    "import/ui:import kit"
    "organisation/ui:organisation kit import/ui"
    "browser/ui:browser organisation kit import/ui"
    "shell:organisation browser import/ui organisation/ui browser/ui"
    "ctl:organisation browser"
    "app:shell ctl"
    "fuzz:import"
)
