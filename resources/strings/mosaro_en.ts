<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
  <name></name>
  <message id="Basic.Alert">
    <source></source>
    <translation>Mosaro</translation>
  </message>
  <message id="Basic.Cancel">
    <source></source>
    <translation>Cancel</translation>
  </message>
  <message id="Basic.OK">
    <source></source>
    <translation>OK</translation>
  </message>
</context>
</TS>
