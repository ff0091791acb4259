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
  <message id="Basic.Size.Byte">
    <source></source>
    <translation>1 byte</translation>
  </message>
  <message id="Basic.Size.Bytes">
    <source></source>
    <translation>%1 bytes</translation>
  </message>
  <message id="Basic.Size.GB">
    <source></source>
    <translation>%1 GB</translation>
  </message>
  <message id="Basic.Size.KB">
    <source></source>
    <translation>%1 KB</translation>
  </message>
  <message id="Basic.Size.MB">
    <source></source>
    <translation>%1 MB</translation>
  </message>
  <message id="Basic.Size.PB">
    <source></source>
    <translation>%1 PB</translation>
  </message>
  <message id="Basic.Size.TB">
    <source></source>
    <translation>%1 TB</translation>
  </message>
  <message id="Basic.Size.Zero">
    <source></source>
    <translation>Zero KB</translation>
  </message>
  <message id="Failure.PropertyList.Damaged">
    <source></source>
    <translation>The data is damaged or is no property list. Restore the file from a backup, or delete it to start afresh.</translation>
  </message>
  <message id="Failure.PropertyList.File">
    <source></source>
    <translation>“%1”: %2</translation>
  </message>
  <message id="Failure.PropertyList.Missing">
    <source></source>
    <translation>The file does not exist.</translation>
  </message>
  <message id="Failure.PropertyList.Oversized">
    <source></source>
    <translation>The property list is too large or too deeply nested to be read safely.</translation>
  </message>
  <message id="Failure.PropertyList.Unsupported">
    <source></source>
    <translation>One of the values cannot be stored in a property list.</translation>
  </message>
</context>
</TS>
