orlix convert head.tif real.tif --type Real32
orlix convert real.tif binary.tif --type Binary
