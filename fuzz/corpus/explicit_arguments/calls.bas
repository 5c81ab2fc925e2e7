Foo a, , c
x = Bar(1, _
  Baz(2), 3) ' c
