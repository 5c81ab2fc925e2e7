Public Function Calculate(a As Long, ByVal b As Long) As Collection

    Set Calculate = Nothing
End Function
